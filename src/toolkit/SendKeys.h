#pragma once

/// Sends a Tab key to whichever control has the focus once the running handler has ended, as if the clerk had
/// pressed it then. Enter in most boxes moves on in this way.
void SendTab();
