#pragma once

class QLineEdit;

/// Enter in the box of the requesting doctor's code. "0" opens a box in which a name is typed; any other text
/// is looked up, and a doctor found is written by first and last name and a Tab key is sent.
void LookUpRequestingDoctor(QLineEdit& code, QLineEdit& name, QLineEdit& typedName);

/// The picker of requesting doctors, which starts with the name's text. The doctor picked is written by last,
/// first and middle name.
void PickRequestingDoctor(QLineEdit& code, QLineEdit& name);
