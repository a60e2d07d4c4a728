#include "toolkit/BeginAnew.h"

#include <QByteArray>
#include <QFile>

#include <cstdio>
#include <unistd.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// The words with which the process was begun.
QByteArrayList WordsOfTheStart() {
    QFile words(u"/proc/self/cmdline"_s);
    if (!words.open(QIODevice::ReadOnly))
        return {};
    // Each ends with a zero.
    QByteArrayList read = words.readAll().split('\0');
    read.removeLast();
    return read;
}

} // namespace

void BeginAnew() {
    QByteArrayList words = WordsOfTheStart();
    std::vector<char*> arguments;
    for (QByteArray& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    std::fflush(nullptr);
    execv("/proc/self/exe", arguments.data());
}
