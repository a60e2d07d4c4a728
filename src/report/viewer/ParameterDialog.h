#pragma once

#include "report/ParameterField.h"

#include <QDialog>

#include <utility>
#include <vector>

class QLabel;
class QLineEdit;

/// Asks the clerk for the values that no caller gave to a report's parameters. Named ReportParameters; each
/// box bears its field's name behind "txt".
class ParameterDialog : public QDialog {
    Q_OBJECT

  public:
    ParameterDialog(std::vector<ParameterField*> fields, QWidget* parent);

    /// Takes the values over when each is of its field's type; otherwise says what is wrong and stays.
    void accept() override;

  private:
    void Refuse(QLineEdit* box, const QString& what);

    std::vector<std::pair<ParameterField*, QLineEdit*>> mBoxes;
    QLabel* mComplaint;
};

/// Asks for the fields that have no value. True when all have one then.
bool AskUnsetParameters(std::vector<ParameterField>& fields, QWidget* parent);
