#pragma once

#include "suite/SignOn.h"
#include "torture/Journal.h"

/// Enters the suite's components as RegisterSuite does, with a session that keeps a journal of what goes to
/// the hospital, be it the trial hospital in the folder or a server. Reports, which only read, keep none.
void RegisterJournaledSuite(const QString& dataFolder, Journal& journal);

/// Signs a user on to the trial hospital in the folder without the sign-on window. Raises std::runtime_error
/// when he is refused.
std::unique_ptr<SignedOnUser> SignOnWithJournal(const QString& dataFolder, Journal& journal,
                                                const QString& user, const QString& password);
