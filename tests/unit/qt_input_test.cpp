// No way of the platform around the rules: keys, dead keys, the clipboard, letters with Alt, the
// wheel, the menu key; and windows that come and go. What a scenario does, it does here as well.
#include "unit/qt_support.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QContextMenuEvent>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>

namespace vorandine::qt_test {
namespace {

class QtInput : public testing::Test, protected Desk {};

TEST_F(QtInput, EveryKeyPassesTheKeyRuleAndTheEditShowsWhatTheFieldHolds) {
    first.KeyPress = [](char32_t& key) { key = key == U'x' ? 0 : key == U'.' ? U',' : key; };
    first.MaxLength(6);
    show();
    auto& edit = static_cast<QLineEdit&>(native(first));
    const auto holds = [&](const char* text, const char* clipboard) {
        EXPECT_EQ(first.Text(), text);
        EXPECT_EQ(edit.text().toStdString(), text);
        EXPECT_EQ(QApplication::clipboard()->text().toStdString(), clipboard);
    };
    QApplication::clipboard()->setText(QStringLiteral("a\nb"));
    type(QStringLiteral("1x.é2"));
    EXPECT_EQ(edit.cursorPosition(), 4);
    QInputMethodEvent dead(QString(), {});
    dead.setCommitString(QStringLiteral("x.êz"));
    QApplication::sendEvent(&edit, &dead);
    holds("1,é2,ê", "a\nb");
    key(Qt::Key_X, Qt::ControlModifier); // with nothing selected
    holds("1,é2,ê", "a\nb");
    key(Qt::Key_Home);
    key(Qt::Key_Delete);
    key(Qt::Key_End);
    key(Qt::Key_V, Qt::ControlModifier);
    holds(",é2,êa", "a\nb");
    key(Qt::Key_Z, Qt::ControlModifier);
    holds(",é2,ê", "a\nb");
    key(Qt::Key_Left, Qt::ShiftModifier);
    key(Qt::Key_X, Qt::ControlModifier);
    holds(",é2,", "ê");
    key(Qt::Key_Q, Qt::AltModifier);
    holds(",é2,", "ê");
    // What code has set is not undone.
    first.LostFocus = [this] { first.Text("neuf"); };
    press(second);
    press(first);
    key(Qt::Key_Z, Qt::ControlModifier);
    holds("neuf", "ê");
}

TEST_F(QtInput, NoWayOutOfAFieldPassesByItsLeavingRule) {
    button.mnemonic('V');
    button.Caption("Valider");
    show();
    int asked = 0;
    first.LostFocus = [&] {
        ++asked;
        first.SetFocus();
    };
    press(list, QPoint(5, 5));
    key(Qt::Key_V, Qt::AltModifier);
    static_cast<QPushButton&>(native(button)).click(); // as assistive tools do
    native(second).setFocus();
    // Another window in front is no way out of the field.
    QWidget other;
    other.show();
    for (QWidget* const front : {&other, static_cast<QWidget*>(window.get())}) {
        front->activateWindow();
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(asked, 4);
    EXPECT_EQ(taken() + focus(), "Txt_Premier");
    EXPECT_TRUE(native(first).hasFocus());

    first.LostFocus = nullptr;
    key(Qt::Key_V, Qt::AltModifier);
    EXPECT_EQ(taken() + focus(), "click Cmd_Valider");
    EXPECT_TRUE(native(button).hasFocus());
}

TEST_F(QtInput, ComboBoxesNeitherCompleteNorTurnAndABarTellsOneChangeWhenLetGo) {
    widgets::ComboBox open;
    widgets::ComboBox closed;
    widgets::ScrollBar bar;
    closed.dropDownList(true);
    for (widgets::ComboBox* const combo : {&open, &closed})
        for (const char* const entry : {"Oui", "Non", "Sans avis"})
            combo->AddItem(entry);
    bar.Max(100);
    bar.Change = [&] { log += std::to_string(bar.Value()) + " "; };
    add(open, "Cbo_Ouvert");
    add(closed, "Cbo_Ferme");
    add(bar, "Bdv_Lignes");
    show();
    press(open, QPoint(5, 8));
    type(QStringLiteral("No"));
    key(Qt::Key_Down);
    EXPECT_EQ(open.Text(), "No");
    key(Qt::Key_Tab);
    EXPECT_EQ(focus(), "Cbo_Ferme");
    type(QStringLiteral("n"));
    key(Qt::Key_End);
    QWheelEvent wheel(QPointF(5, 5), native(closed).mapToGlobal(QPointF(5, 5)), {}, {0, -240},
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&native(closed), &wheel);
    EXPECT_EQ(closed.Text(), "Non");

    auto& slider = static_cast<QScrollBar&>(native(bar));
    slider.setSliderDown(true);
    slider.setSliderPosition(20);
    slider.setSliderPosition(60);
    EXPECT_EQ(taken(), "");
    slider.setSliderDown(false);
    EXPECT_EQ(focus(), "Bdv_Lignes");
    key(Qt::Key_Down);
    key(Qt::Key_End);
    EXPECT_EQ(taken(), "60 61 100 ");
}

TEST_F(QtInput, TheMenuKeyOpensTheMenuOfTheSurfaceAndALetGoListIsNoDrop) {
    widgets::Menu menu("Mnu_Aide", "Aide", false);
    widgets::Menu entry("Mnu_Sommaire", "Sommaire", true);
    menu.entries().push_back(&entry);
    entry.Click = [this] { log += "help "; };
    form.MouseDown = [&](const widgets::MouseEvent& event) {
        if (event.button == 2)
            world.popupMenu(menu);
    };
    list.MouseDown = [this](const widgets::MouseEvent&) { list.Drag(); };
    second.DragDrop = [this](widgets::Control& source) { log += "drop " + source.Name() + " "; };
    show();
    QContextMenuEvent keyed(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(&native(first), &keyed);
    ASSERT_NE(world.openMenu(), nullptr);
    QTest::keyClick(world.openMenu()->windowHandle(), Qt::Key_Down);
    QTest::keyClick(world.openMenu()->windowHandle(), Qt::Key_Return);
    EXPECT_EQ(taken(), "help ");
    const QPoint to = native(second).mapTo(window.get(), QPoint(5, 5));
    for (const Qt::MouseButton each : {Qt::LeftButton, Qt::RightButton}) {
        QTest::mousePress(window->windowHandle(), each, {},
                          native(list).mapTo(window.get(), QPoint(5, 5)));
        QTest::mouseMove(window->windowHandle(), to);
        QTest::mouseRelease(window->windowHandle(), each, {}, to);
        EXPECT_EQ(taken(), "drop Lst_Lignes ");
    }
    press(list, QPoint(5, 5));
    EXPECT_EQ(taken(), "line0 ");
}

TEST_F(QtInput, ABoxSpeaksFrenchAndEscapeAnswersOnlyWhereThereIsCancel) {
    show();
    QString captions; // with "!" where Escape has not answered
    qt::Hooks hooks;
    hooks.boxShown = [&](const widgets::Message& message, QMessageBox& box) {
        captions.clear();
        for (const QAbstractButton* const each : box.buttons())
            captions += each->text();
        QTest::keyClick(&box, Qt::Key_Escape);
        if (box.isVisible() && message.buttons == widgets::Buttons::YesNo) {
            captions += '!';
            QTest::mouseClick(qt::buttonFor(box, widgets::Answer::No), Qt::LeftButton);
        }
    };
    world.hooks(hooks);
    const auto ask = [&](widgets::Buttons buttons) {
        return world.messageBox({"Titre", "Texte\r\nsuite", widgets::Icon::Question, buttons, ""});
    };
    EXPECT_EQ(ask(widgets::Buttons::YesNo), widgets::Answer::No);
    EXPECT_EQ(captions, QStringLiteral("&Oui&Non!"));
    EXPECT_EQ(ask(widgets::Buttons::YesNoCancel), widgets::Answer::Cancel);
    EXPECT_EQ(captions, QStringLiteral("&Oui&Non&Annuler"));
}

TEST_F(QtInput, TheEndOfAFormIsToldOnceAndOnlyWhenNoHandlerRuns) {
    button.Click = [&] {
        form.Unload();
        QCoreApplication::processEvents();
        log += window->isVisible() ? "still there " : "gone ";
    };
    show();
    QSignalSpy told(window.get(), &qt::FormWindow::unloaded);
    press(button);
    EXPECT_EQ(taken(), "still there ");
    for (int i = 0; i < 2; ++i) {
        QCoreApplication::processEvents();
        EXPECT_EQ(told.count(), 1);
        EXPECT_FALSE(window->isVisible());
        window->sync();
    }
}

} // namespace
} // namespace vorandine::qt_test
