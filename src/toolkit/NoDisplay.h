#pragma once

/// From now on an application that finds no display to open its windows on ends the process with 2 and with
/// words on standard error, where the toolkit would abort it. To be called before the application is made.
void EndInWordsWithoutDisplay();
