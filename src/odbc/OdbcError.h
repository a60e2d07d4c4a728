#pragma once

#include "text/RunTimeError.h"

#include <sqltypes.h>

/// The number of a failure to which neither the server nor the driver gives one: the run-time's own for an
/// unspecified failure of a data source.
constexpr int kOdbcFailure = -2147467259;
/// The run-time's own number for a command that was given up.
constexpr int kOdbcCancelled = -2147217842;

/// What the last failing call left behind on a handle, with the number of the server or the driver and its
/// text without the names of the layers.
RunTimeError OdbcErrorOf(SQLSMALLINT handleKind, SQLHANDLE handle);

/// A text of the interface without the bracketed names of the layers that it came through, as in
/// "[vendor][driver][SQL Server]text". What the server itself put in brackets stays.
QString WithoutLayerNames(const QString& text);
