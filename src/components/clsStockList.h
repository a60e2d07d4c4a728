#pragma once

#include "components/Component.h"

#include <QString>

/// The stock picker, StockListLib.clsStockList.
class clsStockList : public Component {
  public:
    /// Takes the connection by its text. False when no such connection is open.
    virtual bool InitConnection(const QString& connectionString) = 0;
    /// Set by a caller that is about to show the list: True for medicines, False for supplies.
    /// Kept: taken and not used; the section given to ShowList decides what is listed.
    virtual void SetDrugsORCSR(bool drugs) = 0;
    /// Lets the clerk pick an item of a stock section and answers its code. A text that is the code of an
    /// item is answered at once, without a list; a list that is left without a pick answers the text as it
    /// was given.
    virtual QString ShowList(const QString& text, bool flag, const QString& section) = 0;
};
