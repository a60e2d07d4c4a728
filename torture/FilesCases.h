#pragma once

#include "torture/FilesPlace.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

/// One thing that is done to a hospital's file, its disk or its machine.
struct FilesCase {
    enum class End {
        /// The clerk works as ever, with the figures of a sound file.
        Works,
        /// The same on another day, so that the paper bears another date.
        WorksOnItsDay,
        /// The sign-on window tells why not, and every file of the folder is as it was.
        Refused,
        /// The program tells a failure and ends. The hospital holds what was answered, and the next desk
        /// works once there is room.
        Fails,
    };

    QString name;
    End end = End::Refused;
    /// A part of what the clerk is told; empty where he works.
    QString told = {};
    std::function<void(FilesPlace&)> prepare = {};
    /// When the slip is keyed and not yet saved.
    std::function<void(FilesPlace&)> beforeSave = {};
    /// What has to be done so that the clerk can work; nothing where that is not to be had.
    std::function<void(FilesPlace&)> mend = {};
    bool isShort = false;
    bool needsADisk = false;
    /// What the folder's name begins with.
    QString folder = QStringLiteral("tarven");
    /// Whether the file is named in what the clerk is told.
    bool namesTheFile = true;
};

std::vector<FilesCase> FilesCases();
