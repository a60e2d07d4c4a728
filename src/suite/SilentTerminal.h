#pragma once

#include <memory>
#include <string_view>

class QFile;

/// A terminal that shows nothing of what is typed, for as long as this lives. A signal that would end the
/// process in between does so once the terminal shows what is typed again.
class SilentTerminal {
  public:
    /// Takes the terminal's file descriptor.
    explicit SilentTerminal(int terminal);
    SilentTerminal(const SilentTerminal&) = delete;
    SilentTerminal& operator=(const SilentTerminal&) = delete;
    ~SilentTerminal();

    /// Writes a text to the terminal. One that cannot be written to is asked nothing and still answers.
    void Ask(std::string_view prompt) const;

    /// Whether a signal came since the last one of these began.
    static bool IsInterrupted();

  private:
    struct Before;

    int mTerminal;
    std::unique_ptr<Before> mBefore;
};

/// Whether others than its owner may read or write an open file.
bool MayOthersRead(const QFile& file);
