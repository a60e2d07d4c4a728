#pragma once

#include <QString>

/// What a charge slip shows above its lines, which stand in the print table.
struct SlipHeading {
    QString number;
    QString patientName;
    QString admissionNumber;
    QString hospitalNumber;
    QString room;
    QString account;
    QString station;
};

/// Opens the slip into gReport. It bears today's date, the time, and the name of the user who is signed on.
void OpenChargeSlip(const SlipHeading& slip);
