// Windows come and go: message boxes, modal forms, closing, and the end of a form.
#include "unit/qt_support.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTimer>

namespace vorandine::qt_test {
namespace {

class QtWorldTest : public testing::Test, protected Desk {};

TEST_F(QtWorldTest, ABoxSpeaksFrenchAndEscapeAnswersOnlyWhereThereIsCancel) {
    show();
    QStringList captions;
    bool stayed = false;
    qt::Hooks hooks;
    hooks.boxShown = [&](const widgets::Message& message, QMessageBox& box) {
        captions.clear();
        for (const QAbstractButton* const each : box.buttons())
            captions << each->text();
        QTest::keyClick(&box, Qt::Key_Escape);
        stayed = box.isVisible();
        if (stayed && message.buttons == widgets::Buttons::YesNo)
            QTest::mouseClick(qt::buttonFor(box, widgets::Answer::No), Qt::LeftButton);
    };
    world.hooks(hooks);
    const auto ask = [&](widgets::Buttons buttons) {
        return world.messageBox({"Titre", "Texte\r\nsuite", widgets::Icon::Question, buttons, ""});
    };
    EXPECT_EQ(ask(widgets::Buttons::YesNo), widgets::Answer::No);
    EXPECT_TRUE(stayed);
    EXPECT_EQ(captions, QStringList({"&Oui", "&Non"}));
    EXPECT_EQ(ask(widgets::Buttons::YesNoCancel), widgets::Answer::Cancel);
    EXPECT_FALSE(stayed);
    EXPECT_EQ(captions, QStringList({"&Oui", "&Non", "&Annuler"}));
    EXPECT_EQ(ask(widgets::Buttons::OK), widgets::Answer::OK);
    QCoreApplication::processEvents();
    EXPECT_TRUE(window->isActiveWindow());
}

TEST_F(QtWorldTest, AModalFormHoldsItsCallerUntilItIsUnloaded) {
    TestForm inner;
    bool refuse = true;
    inner.form.QueryUnload = [&](bool& cancel) { cancel = refuse; };
    button.Click = [&] {
        log += "before ";
        world.runModal(inner.form);
        log += "after ";
    };
    show();
    bool disabledBelow = false;
    QTimer::singleShot(0, [&] {
        qt::FormWindow* const front = world.front();
        EXPECT_EQ(&front->form(), &inner.form);
        disabledBelow = QApplication::activeModalWidget() == front;
        front->close();
        EXPECT_TRUE(front->isVisible());
        refuse = false;
        front->close();
    });
    press(button);
    EXPECT_TRUE(disabledBelow);
    EXPECT_EQ(taken(), "before after ");
    EXPECT_EQ(world.front(), window.get());
}

TEST_F(QtWorldTest, TheEndOfAFormIsToldOnceAndOnlyWhenNoHandlerRuns) {
    button.Click = [&] {
        form.Unload();
        QCoreApplication::processEvents();
        log += window->isVisible() ? "still " : "gone ";
    };
    show();
    QSignalSpy told(window.get(), &qt::FormWindow::unloaded);
    press(button);
    EXPECT_EQ(taken(), "still ");
    QCoreApplication::processEvents();
    EXPECT_EQ(told.count(), 1);
    EXPECT_FALSE(window->isVisible());
    window->sync();
    QCoreApplication::processEvents();
    EXPECT_EQ(told.count(), 1);
}

TEST_F(QtWorldTest, WhatIsDisabledOrHiddenLosesTheFocusWithoutARule) {
    first.LostFocus = [this] { log += "left "; };
    show();
    first.Enabled(false);
    window->sync();
    EXPECT_EQ(window->focusWidget(), window.get());
    key(Qt::Key_Tab);
    EXPECT_EQ(focus(), "Txt_Second");
    second.Visible(false);
    window->sync();
    EXPECT_FALSE(native(second).isVisible());
    key(Qt::Key_Tab);
    EXPECT_EQ(focus(), "Cmd_Valider");
    EXPECT_EQ(taken(), "");
}

} // namespace
} // namespace vorandine::qt_test
