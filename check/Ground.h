#pragma once

#include "check/Finding.h"
#include "check/Needs.h"
#include "gateway/CommandGateway.h"

#include <QString>

/// What the checks look at.
struct Ground {
    /// Of the user who has signed on; one that is not connected where nobody could.
    CommandGateway& connection;
    const Needs& needs;
    bool isTrial = false;
    QString user;
    /// The data source, as the sign-on window lists it.
    QString source;
    QString department;
    /// Where the trial hospital and what the program keeps for the user lie.
    QString dataFolder;
};

/// One thing that is looked at: its name, how, and whether it can be without a connection.
struct Check {
    const char* name;
    Findings (*look)(const Ground& ground);
    bool isOfDesk = false;
};
