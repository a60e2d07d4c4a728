#pragma once

/// The operating system's way to begin this process anew with the words of its start. Comes back where that
/// fails.
void BeginAnew();
