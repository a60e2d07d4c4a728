#include "GiveUp.h"

#include <cstdio>
#include <cstdlib>

void GiveUp(const QString& why) {
    std::fprintf(stderr, "%s\n", qPrintable(why));
    std::exit(1);
}
