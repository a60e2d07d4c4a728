#pragma once

class Album;
class Driver;

/// The charges of a patient listed and one of them cancelled; the strip in its two colours, the wards' queue,
/// and a request taken from it into the charge screen.
void VisitWards(Driver& clerk, Album& album);
