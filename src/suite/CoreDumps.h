#pragma once

/// Keeps this process from leaving its memory behind when it crashes, and other processes of the same user
/// from reading it: from the sign-on on, a password stands in it.
void ForbidCoreDumps();
