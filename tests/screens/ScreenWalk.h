#pragma once

#include "screens/ScreenTable.h"

class QLabel;
class QObject;
class QWidget;

/// Compares an open screen with its section of the table, control by control.
class ScreenWalk {
  public:
    ScreenWalk(const QWidget& screen, const ScreenSection& section);

    /// Everything that differs, one text each, with the line of the table where there is one.
    QStringList Faults();

  private:
    void CheckTitle();
    void CheckRow(const ControlRow& row);
    void CheckCaption(const ControlRow& row, QObject& control);
    void CheckLabel(const ControlRow& row, QWidget& input);
    void CheckState(const ControlRow& row, const QObject& control);
    void CheckInputs();
    void CheckTabOrder();

    /// Null when there is none or more than one; that is a fault then.
    QObject* ControlOf(const ControlRow& row);
    QList<QObject*> Candidates(const ControlRow& row) const;
    const QLabel* LabelOf(const QWidget& input) const;
    QStringList TabStops() const;
    void Add(const ControlRow& row, const QString& what);

    const QWidget& mScreen;
    const ScreenSection& mSection;
    QStringList mFaults;
};
