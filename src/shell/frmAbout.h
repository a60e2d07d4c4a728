#pragma once

#include "toolkit/Form.h"

class QPlainTextEdit;
class QPushButton;
class QTimer;

/// The information box, with what support asks for as a text that can be copied. It fades in when it is shown
/// and out when it is closed.
class frmAbout : public Form {
    Q_OBJECT

  public:
    frmAbout();

    /// Turns a box that is fading out back; one that is fully there stays so.
    void FadeIn();

  protected:
    void Form_Load() override;
    void closeEvent(QCloseEvent* event) override;

  private:
    void Layout();
    void Wire();

    void Timer_Tick();
    void FadeOut();
    void SetOpacity(int opacity);

    QPlainTextEdit* txtFacts;
    QPushButton* cmdCopy;
    QPushButton* cmdOK;
    QTimer* tmrFade;
    /// The window's opacity from 0 to 255.
    int mOpacity = 0;
    int mStep = 0;
};
