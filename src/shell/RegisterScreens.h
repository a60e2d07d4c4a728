#pragma once

/// Tells the patient finder which screens wait for it. Once, before the main window opens.
void RegisterScreens();
