#pragma once

#include "toolkit/Form.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QStringList>
#include <QVBoxLayout>

#include <functional>

/// What happened to the screens below, in order.
inline QStringList formEvents;

/// A screen with a text box, a button and a check box that keeps a record of its life. `Letter` tells several
/// apart.
template <char Letter> class RecordedForm : public Form {
  public:
    RecordedForm()
        : box(new QLineEdit(this))
        , button(new QPushButton(this))
        , check(new QCheckBox(this)) {
        setObjectName(QStringLiteral("Screen") + QChar::fromLatin1(Letter));
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(box);
        layout->addWidget(button);
        layout->addWidget(check);
        box->setFocus();
        QObject::connect(button, &QPushButton::clicked, this, [this] {
            if (onButton)
                onButton();
        });
    }

    ~RecordedForm() override { Note("gone"); }

    using Form::LetMaximize;
    using Form::SetCloseButton;
    using Form::StandAlone;

    QLineEdit* box;
    QPushButton* button;
    QCheckBox* check;
    bool refuses = false;
    bool holdsWork = false;
    std::function<void()> onButton;
    static inline std::function<void(RecordedForm&)> onLoad;
    static inline std::function<void(RecordedForm&)> onActivate;
    static inline std::function<void(RecordedForm&)> onUnload;

    static void Forget() {
        onLoad = {};
        onActivate = {};
        onUnload = {};
    }

  protected:
    void Form_Load() override {
        Note("load");
        if (onLoad)
            onLoad(*this);
    }
    void Form_Activate() override {
        Note("activate");
        if (onActivate)
            onActivate(*this);
    }
    bool Form_QueryUnload() override {
        Note("query");
        return !refuses;
    }
    void Form_Unload() override {
        Note("unload");
        if (onUnload)
            onUnload(*this);
    }

    bool HoldsWork() const override { return holdsWork; }

  private:
    static void Note(const char* event) {
        formEvents.push_back(QChar::fromLatin1(Letter) + QStringLiteral(" ") + QString::fromLatin1(event));
    }
};

using FormA = RecordedForm<'A'>;
using FormB = RecordedForm<'B'>;
using FormC = RecordedForm<'C'>;
using FormD = RecordedForm<'D'>;
