#pragma once

#include <QString>

/// The wards' pending requests to the department.
QString NurseRequestCommand();

/// The class of a room.
QString RoomClassCommand(const QString& roomId);

/// The exams asked for under an id number, as lines of the charge screen.
QString LoadExamCommand(const QString& idNum);

/// Takes a request back in the name of an employee.
QString RevokeNurseRequestCommand(const QString& requestNumber, const QString& employeeCode);

/// Asks how many of the wards' requests wait for this department.
///
/// Kept: the department is the fixed "HC", whatever department the workstation is set up for.
QString CheckPendingCommand();
