#pragma once

/// The start of the workstation: configuration file, department, in-house components, main window, sign-on.
/// False when the process is to end, because no department is set, a component is missing or nobody signed
/// on. The caller ends it, here and below, so that a test of the start can go on.
bool Main();

/// Reads the department and, when it is not set, runs the setup dialogue. False when the process is to end.
bool LoadDepartment();

/// Creates the in-house components that the start needs, in their order. False when one cannot be created,
/// which it tells.
bool InitComponents();
