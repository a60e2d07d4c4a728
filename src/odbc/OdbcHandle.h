#pragma once

#include <QString>

#include <sqltypes.h>

/// One handle of the driver manager, freed at the end of its life. A child must not outlive its parent.
class OdbcHandle {
  public:
    /// A handle of that kind under a parent of that kind. Raises what the parent tells when there is none to
    /// be had.
    OdbcHandle(SQLSMALLINT kind, SQLSMALLINT parentKind, SQLHANDLE parent);
    OdbcHandle(const OdbcHandle&) = delete;
    OdbcHandle& operator=(const OdbcHandle&) = delete;
    ~OdbcHandle();

    SQLHANDLE Get() const { return mHandle; }
    /// Raises what the last call on this handle left behind, unless its result tells of success.
    void Check(SQLRETURN result) const;

  private:
    SQLSMALLINT mKind;
    SQLHANDLE mHandle;
};

/// The driver manager, spoken to by version 3 of its interface.
class OdbcEnvironment : public OdbcHandle {
  public:
    OdbcEnvironment();
};

/// A text as the interface's wide functions take it; it looks into the text and must not outlive it. The
/// functions only read it.
SQLWCHAR* OdbcText(const QString& text);
/// A number in the place of a pointer, as attributes are set.
SQLPOINTER OdbcNumber(qulonglong number);
