#pragma once

/// Tells the patient finder and the list of cash patients which screens wait for them. Once, before the main
/// window opens.
void RegisterScreens();
