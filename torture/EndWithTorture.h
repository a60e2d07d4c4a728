#pragma once

class QProcess;

/// Lets a process that is started next end with the torture, however that ends. To be called before the
/// start.
void EndWithTorture(QProcess& process);
