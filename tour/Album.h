#pragma once

#include <QString>

class Driver;

/// Takes numbered pictures of the screen into a folder.
class Album {
  public:
    Album(Driver& driver, const QString& folder)
        : mDriver(driver)
        , mFolder(folder) {}

    /// Raises DriverError when the picture cannot be written.
    void Take(const QString& name);

  private:
    Driver& mDriver;
    QString mFolder;
    int mCount = 0;
};
