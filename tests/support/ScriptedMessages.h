#pragma once

#include "toolkit/MsgBox.h"

#include <deque>
#include <vector>

/// Takes the place of the message boxes while it lives: keeps a transcript, answers from a queue, and fails
/// the test on a box that nobody expected.
class ScriptedMessages {
  public:
    ~ScriptedMessages();

    /// The next box may come, and is answered so.
    void Expect(const Message& message, MsgAnswer answer = MsgAnswer::Ok);

    const std::vector<Message>& Shown() const { return mShown; }

  private:
    MsgAnswer Show(const Message& message);

    struct Step {
        Message message;
        MsgAnswer answer;
    };

    std::deque<Step> mSteps;
    std::vector<Message> mShown;
    const Seam<MsgAnswer(const Message&)>::Replacement mBoxes =
        MessageSeam().Replace([this](const Message& message) { return Show(message); });
};
