#pragma once

#include "patients/FinderTarget.h"
#include "patients/KeptBox.h"
#include "patients/LoadPatient.h"

#include <QString>

/// A screen that waits for the patient finder in one of the three modes and writes down what it is given.
class FakeFinderTarget : public FinderTarget, public Written {
  public:
    explicit FakeFinderTarget(const QString& mode)
        : mMode(mode) {}

    QString finderText;
    int picked = 0;

    QString FinderText() const override { return finderText; }
    void LoadPick() override {
        if (mMode == QStringLiteral("Post"))
            LoadForPost({.name = mName, .info = mInfo});
        else if (mMode == QStringLiteral("List"))
            LoadForList({.name = mName, .info = mInfo});
        else
            LoadForLedger(mSearch);
    }
    void Picked() override { ++picked; }

  private:
    QLineEdit* Box(const char* name) {
        return mBoxes.emplace_back(std::make_unique<KeptBox>(QString::fromLatin1(name), *this)).get();
    }

    QString mMode;
    std::vector<std::unique_ptr<KeptBox>> mBoxes;
    PatientNameBoxes mName{.txtLastName = Box("txtLastName"),
                           .txtFirstName = Box("txtFirstName"),
                           .txtMiddleName = Box("txtMiddleName"),
                           .txtSex = Box("txtSex"),
                           .txtDob = Box("txtDob"),
                           .txtAge = Box("txtAge")};
    HospitalInfoBoxes mInfo{.txtPno = Box("txtPno"),
                            .txtId = Box("txtId"),
                            .txtDateAdmitted = Box("txtDateAdmitted"),
                            .txtRoom = Box("txtRoom"),
                            .txtDoctor = Box("txtDoctor"),
                            .txtDoctorID = Box("txtDoctorID")};
    SearchPatientBoxes mSearch{.cmbPatientCode = nullptr,
                               .txtIDNum = Box("txtIDNum"),
                               .txtHospNum = Box("txtHospNum"),
                               .txtLastName = mName.txtLastName,
                               .txtFirstName = mName.txtFirstName,
                               .txtMiddleName = mName.txtMiddleName};
};

/// Fake screens that wait in the three modes.
struct FakeFinderTargets {
    FakeFinderTargets() {
        for (auto& [mode, target] : targets)
            RegisterFinderTarget(mode, [&target = target]() -> FinderTarget& { return target; });
    }
    ~FakeFinderTargets() {
        for (const auto& [mode, target] : targets)
            RegisterFinderTarget(mode, {});
    }
    FakeFinderTargets(const FakeFinderTargets&) = delete;
    FakeFinderTargets& operator=(const FakeFinderTargets&) = delete;

    FakeFinderTarget& operator[](const QString& mode) { return targets.at(mode); }
    bool contains(const QString& mode) const { return targets.contains(mode); }

  private:
    static std::map<QString, FakeFinderTarget> Make() {
        std::map<QString, FakeFinderTarget> made;
        for (const QString& mode : {QStringLiteral("Post"), QStringLiteral("List"), QStringLiteral("Ledger")})
            made.try_emplace(mode, mode);
        return made;
    }

    std::map<QString, FakeFinderTarget> targets = Make();
};
