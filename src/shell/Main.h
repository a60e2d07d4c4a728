#pragma once

/// The start of the workstation: configuration file, department, in-house components, main window, sign-on.
/// Comes back when the main window stands. Ends the process when no department is set, a component is missing
/// or nobody signs on.
void Main();

/// Reads the department. When it is not set, runs the setup dialogue and ends the process.
void LoadDepartment();

/// Creates the in-house components that the start needs, in their order. False when one cannot be created,
/// which it tells.
bool InitComponents();
