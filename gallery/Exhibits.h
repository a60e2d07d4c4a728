#pragma once

#include <QString>

#include <functional>
#include <vector>

class Driver;

/// Saves a picture of the screen under the name, which follows the class's.
using TakePicture = std::function<void(const QString& name)>;

/// A screen that no menu leads to.
struct Exhibit {
    /// The name of its class.
    QString name;
    std::function<void()> open;
    std::function<void()> close;
    /// Keys what a clerk would and takes the pictures.
    std::function<void(Driver&, const TakePicture&)> visit;
};

/// Every screen of the gallery.
std::vector<Exhibit> Exhibits();
