#pragma once

class Driver;

/// Waits for the sign-on window and gives the main window the size for which pictures are taken.
void SizeForPictures(Driver& clerk);

/// Waits for the sign-on window and answers it as a nurse of the trial hospital.
void KeyLogOn(Driver& clerk);

/// The same, and waits until the window has closed: signs on as a nurse of the trial hospital.
void SignOn(Driver& clerk);
