// No way of the platform around the rules: keys, dead keys, the clipboard, clicks, letters with
// Alt.
#include "unit/qt_support.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>

namespace vorandine::qt_test {
namespace {

class QtInput : public testing::Test, protected Desk {
  protected:
    [[nodiscard]] QLineEdit& edit(const widgets::Control& field) const {
        return static_cast<QLineEdit&>(native(field));
    }
};

TEST_F(QtInput, EveryKeyPassesTheKeyRuleAndTheEditShowsWhatTheFieldHolds) {
    first.KeyPress = [](char32_t& key) { key = key == U'x' ? 0 : key == U'.' ? U',' : key; };
    first.MaxLength(6);
    show();
    type(QStringLiteral("1x.é2"));
    EXPECT_EQ(first.Text(), "1,é2");
    EXPECT_EQ(edit(first).text(), QStringLiteral("1,é2"));
    EXPECT_EQ(edit(first).cursorPosition(), 4);

    QInputMethodEvent dead(QString(), {});
    dead.setCommitString(QStringLiteral("x.ê"));
    QApplication::sendEvent(&edit(first), &dead);
    EXPECT_EQ(first.Text(), "1,é2,ê");
    type(QStringLiteral("z"));
    EXPECT_EQ(first.Text(), "1,é2,ê");

    key(Qt::Key_Home);
    key(Qt::Key_Right, Qt::ShiftModifier);
    key(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(first.Text(), ",é2,ê");
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("1"));
    key(Qt::Key_End);
    QApplication::clipboard()->setText(QStringLiteral("a\nb"));
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(first.Text(), ",é2,êa");
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(first.Text(), ",é2,ê");
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(first.Text(), ",é2,êa");
    QTest::keyClick(window->windowHandle(), Qt::Key_Q, Qt::AltModifier);
    EXPECT_EQ(first.Text(), ",é2,êa");
}

TEST_F(QtInput, NoWayOutOfAFieldPassesByItsLeavingRule) {
    button.mnemonic('V');
    button.Caption("Valider");
    widgets::OptionButton option;
    add(option, "Opt_Choix");
    show();
    int asked = 0;
    first.LostFocus = [&] {
        ++asked;
        first.SetFocus();
    };
    press(second);
    press(button);
    press(option);
    press(list, QPoint(5, 5));
    key(Qt::Key_Tab);
    key(Qt::Key_V, Qt::AltModifier);
    static_cast<QPushButton&>(native(button)).click(); // as assistive tools do
    native(second).setFocus();
    EXPECT_EQ(asked, 8);
    EXPECT_EQ(taken(), "");
    EXPECT_EQ(focus(), "Txt_Premier");
    EXPECT_TRUE(native(first).hasFocus());
    EXPECT_FALSE(option.Value());

    // Another window in front is no way out of the field.
    QWidget other;
    other.show();
    other.activateWindow();
    QCoreApplication::processEvents();
    window->activateWindow();
    QCoreApplication::processEvents();
    EXPECT_EQ(asked, 8);

    first.LostFocus = nullptr;
    key(Qt::Key_V, Qt::AltModifier);
    EXPECT_EQ(taken(), "click ");
    EXPECT_EQ(focus(), "Cmd_Valider");
    EXPECT_TRUE(native(button).hasFocus());
}

TEST_F(QtInput, ComboBoxesNeitherCompleteNorTurnWithTheWheel) {
    widgets::ComboBox open;
    widgets::ComboBox closed;
    closed.dropDownList(true);
    for (widgets::ComboBox* const combo : {&open, &closed})
        for (const char* const entry : {"Oui", "Non", "Sans avis"})
            combo->AddItem(entry);
    add(open, "Cbo_Ouvert");
    add(closed, "Cbo_Ferme");
    show();
    press(open, QPoint(5, 8));
    type(QStringLiteral("No"));
    key(Qt::Key_Down);
    EXPECT_EQ(open.Text(), "No");
    key(Qt::Key_Tab);
    EXPECT_EQ(focus(), "Cbo_Ferme");
    type(QStringLiteral("n"));
    EXPECT_EQ(closed.Text(), "Non");
    key(Qt::Key_End);
    EXPECT_EQ(closed.Text(), "Non");
    QWheelEvent wheel(QPointF(5, 5), native(closed).mapToGlobal(QPointF(5, 5)), {}, {0, -240},
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&native(closed), &wheel);
    EXPECT_EQ(closed.Text(), "Non");
}

TEST_F(QtInput, ABarTellsOneChangeWhenItIsLetGo) {
    widgets::ScrollBar bar;
    bar.Max(100);
    std::vector<int> changes;
    bar.Change = [&] { changes.push_back(bar.Value()); };
    add(bar, "Bdv_Lignes");
    show();
    auto& nativeBar = static_cast<QScrollBar&>(native(bar));
    nativeBar.setSliderDown(true);
    nativeBar.setSliderPosition(20);
    nativeBar.setSliderPosition(60);
    EXPECT_TRUE(changes.empty());
    nativeBar.setSliderDown(false);
    EXPECT_EQ(changes, std::vector<int>{60});
    EXPECT_EQ(focus(), "Bdv_Lignes");
    key(Qt::Key_Down);
    key(Qt::Key_End);
    EXPECT_EQ(changes, (std::vector<int>{60, 61, 100}));
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

    QWindow* const handle = window->windowHandle();
    for (const Qt::MouseButton each : {Qt::LeftButton, Qt::RightButton}) {
        QTest::mousePress(handle, each, {}, native(list).mapTo(window.get(), QPoint(5, 5)));
        QTest::mouseMove(handle, native(second).mapTo(window.get(), QPoint(5, 5)));
        QTest::mouseRelease(handle, each, {}, native(second).mapTo(window.get(), QPoint(5, 5)));
        EXPECT_EQ(taken(), "drop Lst_Lignes ");
    }
    press(list, QPoint(5, 5));
    EXPECT_EQ(taken(), "line0 ");
}

} // namespace
} // namespace vorandine::qt_test
