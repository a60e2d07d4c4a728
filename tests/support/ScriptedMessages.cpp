#include "support/ScriptedMessages.h"

#include <gtest/gtest.h>

ScriptedMessages::~ScriptedMessages() {
    for (const Step& step : mSteps)
        ADD_FAILURE() << "no such message box: " << step.message.text.toStdString();
}

void ScriptedMessages::Expect(const Message& message, MsgAnswer answer) {
    mSteps.push_back({message, answer});
}

MsgAnswer ScriptedMessages::Show(const Message& message) {
    mShown.push_back(message);
    if (mSteps.empty()) {
        ADD_FAILURE() << "unexpected message box: " << message.text.toStdString();
        return MsgAnswer::Cancel;
    }
    const Step step = mSteps.front();
    mSteps.pop_front();
    EXPECT_EQ(message.text.toStdString(), step.message.text.toStdString());
    EXPECT_EQ(message.title.toStdString(), step.message.title.toStdString());
    EXPECT_EQ(message.icon, step.message.icon);
    EXPECT_EQ(message.buttons, step.message.buttons);
    EXPECT_EQ(message.defaultAnswer, step.message.defaultAnswer);
    return step.answer;
}
