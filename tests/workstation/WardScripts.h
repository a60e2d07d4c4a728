#pragma once

class Driver;

// What the wards ask for.

/// Waits idle for a ward's request, opens the queue from the strip, takes the request into the charge screen
/// and posts it.
void WardRequest(Driver& clerk);
/// Signs on and waits idle for the program's end by a failure.
void IdleUntilFailure(Driver& clerk);
/// The same behind a modal screen.
void ModalUntilFailure(Driver& clerk);
