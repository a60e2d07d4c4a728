#pragma once

#include "screens/ScreenTable.h"
#include "support/shell/RecordingSuite.h"

#include <functional>
#include <memory>

class Form;
class frmMain;

/// The whole program as it stands after the sign-on, over a scripted gateway, and the ways from the main
/// window to each screen.
class WaysIn : public StartTest {
  protected:
    using Look = std::function<void(const QWidget& screen)>;

    WaysIn();
    ~WaysIn() override;

    /// Opens the screen in each of its ways and hands it to the look while it stands open. A screen that does
    /// not open, or not as modal as it should, fails the test; so does a way that is not known.
    void Open(const ScreenSection& section, const Look& look);

  private:
    void Go(const QString& way);
    void LookAt(const Form* screen);
    /// The screen that the code after this call shows modally is the one to look at.
    void LookAtModal();
    void ChooseMenu(const QString& name) const;
    /// A button of the toolbar, or an item of one of its dropdowns.
    void ChooseTool(const QString& name) const;
    void OpenByClass();
    void OpenFinder();
    void OpenSearch();
    void OpenCashList();
    void OpenRegistration();
    void OpenRequests();
    void OpenViewer();
    void OpenConsultation();
    /// Opens the cash assessment and searches for cash patients of the kind of that option; the steps are
    /// what is done before the list shows.
    void SearchCashPatients(int option, const std::function<void()>& steps);
    /// What the screen asks for while it loads, and asks the clerk when it closes.
    void ExpectWhatItAsks();
    FakeCurrentUser& User() const;
    QString WriteTemplate(const QString& name) const;

    std::unique_ptr<frmMain> mWindow;
    Look mLook;
    std::string mName;
    bool mIsModal = false;
    bool mLooked = false;
};
