#pragma once

#include <QLineEdit>
#include <QSignalBlocker>

#include <map>
#include <vector>

/// What was written into the boxes of a screen that waits: each box's last text, and the boxes' names in the
/// order in which they were filled.
struct Written {
    std::map<QString, QString> boxes;
    std::vector<QString> order;
};

/// A box of such a screen.
class KeptBox : public QLineEdit {
  public:
    KeptBox(const QString& name, Written& written) {
        setText(kUnwritten);
        connect(this, &QLineEdit::textChanged, this, [this, name, &written](const QString& text) {
            written.boxes[name] = text;
            written.order.push_back(name);
            // The same text again is a write again.
            const QSignalBlocker quiet(this);
            setText(kUnwritten);
        });
    }

  private:
    inline static const QString kUnwritten = QStringLiteral("nothing was written");
};
