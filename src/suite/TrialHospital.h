#pragma once

#include "suite/DataSource.h"

#include <QString>

/// The trial hospital: one file in the user's data folder, made at the first sign-on.
class TrialHospital : public DataSource {
  public:
    /// The folder is made when the hospital is. Where the file is a link, the hospital is the file
    /// that it leads to, whose own folder is somebody else's affair.
    explicit TrialHospital(const QString& folder);

    QString Name() const override;
    bool IsTrial() const override { return true; }
    /// The trial users, who are told here and nowhere else.
    QString Hint() const override;
    bool NeedsMaking() const override;
    bool CanBeMadeAnew() const override { return true; }
    bool HoldsWork() const override;
    void Make(const MakingProgress& progress) override;
    void MakeAnew(const MakingProgress& progress) override;
    std::unique_ptr<CommandGateway> Connect(const QString& user, const QString& password) override;
    std::unique_ptr<CommandGateway> ConnectToRead(const QString& user, const QString& password) override;
    std::unique_ptr<CommandGateway> ConnectToReplace(const QString& user, const QString& password) override;
    std::unique_ptr<SignOnTrail> Trail(CommandGateway& connection) const override;

    /// Writes a copy of the hospital into a new file while others go on working in it. Raises as
    /// HospitalFile::BackUp does.
    void BackUp(const QString& copy) const;
    /// Puts such a copy in the hospital's place. Raises as HospitalFile::Restore does.
    void Restore(const QString& copy) const;

    const QString& Path() const { return mPath; }

  private:
    void MakeFolder() const;

    QString mFolder;
    QString mPath;
};
