// What a person sees of the real screen: nothing cut off at any size, one table, a name for all.
#include "frontends/qt/ListView.h"
#include "unit/control_support.h"
#include "unit/qt_support.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTabBar>

namespace vorandine::qt_test {
namespace {

class QtLooks : public testing::Test {
  protected:
    control_test::Desk desk;
    qt::QtWorld world;
    std::unique_ptr<host::CaregiverForm> form;
    std::unique_ptr<qt::FormWindow> window;

    void open(int lines) {
        desk.put("FORMVORANDINE", "00012", control_test::caregiver(lines));
        form = desk.open("00012");
        window = std::make_unique<qt::FormWindow>(form->form(), world);
        window->show();
    }

    template <typename Native>
    [[nodiscard]] Native& native(const std::string& name) const {
        return static_cast<Native&>(
            *window->widgetFor(control_test::at<widgets::Control>(*form, name)));
    }
};

QString bare(QString text) {
    return text.replace("&&", "\x01").remove('&').replace("\x01", "&");
}

TEST_F(QtLooks, NoCaptionIsCutOffAtAnyZoom) {
    open(3);
    for (const double zoom : {0.8, 1.0, 1.15, 1.5, 2.0, 3.0}) {
        window->setZoom(zoom);
        for (const QAbstractButton* const each : window->findChildren<QAbstractButton*>())
            EXPECT_LE(QFontMetrics(each->font()).horizontalAdvance(bare(each->text())),
                      each->width())
                << each->text().toStdString() << " at " << zoom;
        for (const QLabel* const each : window->findChildren<QLabel*>())
            EXPECT_TRUE(each->text() == each->accessibleName() &&
                        QFontMetrics(each->font()).horizontalAdvance(each->text()) <=
                            each->width() &&
                        QFontMetrics(each->font()).height() <= each->height())
                << each->text().toStdString() << " at " << zoom;
        const auto& bar = *window->findChild<QTabBar*>();
        EXPECT_GE(bar.width(), bar.sizeHint().width()) << zoom;
        // The columns whose lines have a fixed form.
        const auto& dates = native<qt::ListWidget>("Lst_DatFormAidant");
        EXPECT_LT(dates.fontMetrics().horizontalAdvance("12/03/2004"),
                  dates.viewport()->width() - 4)
            << zoom;
        const auto& hours = native<qt::ListWidget>("Lst_HhFormAidant");
        EXPECT_LT(hours.fontMetrics().horizontalAdvance("9999,99"), hours.viewport()->width() - 4)
            << zoom;
    }
}

TEST_F(QtLooks, TheTrainingListsAreOneTable) {
    open(5000);
    const std::vector<std::string> columns = {"Lst_DatFormAidant", "Lst_CodFormAidant",
                                              "Lst_HhFormAidant",  "Lst_ObsFormAidant",
                                              "Lst_DifFormAidant", "Bdv_FormAidant"};
    const auto inStep = [&](int top) {
        for (std::size_t i = 0; i + 1 < columns.size(); ++i) {
            const auto& list = native<qt::ListWidget>(columns[i]);
            EXPECT_EQ(list.verticalScrollBar()->value(), top) << columns[i];
            EXPECT_FALSE(list.verticalScrollBar()->isVisible());
            EXPECT_EQ(list.geometry().right() + 1,
                      native<QWidget>(columns[i + 1]).geometry().left());
        }
    };
    inStep(0);
    auto& labels = native<qt::ListWidget>("Lst_CodFormAidant");
    QWheelEvent wheel(QPointF(5, 5), labels.viewport()->mapToGlobal(QPointF(5, 5)), {}, {0, -240},
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(labels.viewport(), &wheel);
    inStep(6);
    QTest::mouseClick(labels.viewport(), Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_EQ(control_test::at<widgets::ListBox>(*form, "Lst_ObsFormAidant").ListIndex(), 6);
    inStep(6);
    QTest::keyClick(&labels, Qt::Key_End);
    EXPECT_EQ(control_test::at<widgets::ListBox>(*form, "Lst_DatFormAidant").ListIndex(), 4999);
    inStep(5000 - labels.linesInPage());
    QTest::keyClick(&labels, Qt::Key_PageUp);
    EXPECT_EQ(control_test::at<widgets::ListBox>(*form, "Lst_HhFormAidant").ListIndex(),
              5000 - labels.linesInPage());
    // Zoomed, they still end where the next one begins.
    window->setZoom(1.37);
    inStep(labels.verticalScrollBar()->value());
}

TEST_F(QtLooks, TheFormGrowsWithItsWindow) {
    open(1);
    window->setZoom(1.0);
    const QSize whole = window->size();
    double told = 0;
    QObject::connect(window.get(), &qt::FormWindow::zoomChanged, [&](double zoom) { told = zoom; });
    window->resize(whole.width() * 2, whole.height() * 3 / 2);
    EXPECT_NEAR(window->zoom(), 1.5, 0.01);
    EXPECT_EQ(told, window->zoom());
    EXPECT_NEAR(native<QWidget>("Cmd_OK").width(), 57 * 1.5, 1.0);
    QTest::keyClick(window.get(), Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(window->size(), whole);
    QTest::keyClick(window.get(), Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_LT(window->width(), whole.width());
}

TEST_F(QtLooks, EveryControlHasANameForAssistiveTools) {
    open(1);
    // What stands on a tab is made when it first comes to the front.
    for (const int tab : {1, 2, 0}) {
        control_test::at<widgets::TabContainer>(*form, "Ong_Vorandine").Tab(tab);
        window->sync();
    }
    const auto name = [&](const std::string& control) {
        return QAccessible::queryAccessibleInterface(&native<QWidget>(control))
            ->text(QAccessible::Name)
            .toStdString();
    };
    EXPECT_EQ(name("Txt_AnDipAidant"), "Année");
    EXPECT_EQ(name("Txt_ObsFormAidant"), "Observations");
    EXPECT_EQ(name("Lst_HhFormAidant"), "Heures");
    // A combo box is named by its label, its field by itself.
    const auto labels = QAccessible::queryAccessibleInterface(&native<QWidget>("Cbo_CodFormAidant"))
                            ->relations(QAccessible::Label);
    ASSERT_EQ(labels.size(), 1);
    EXPECT_EQ(labels.front().first->text(QAccessible::Name).toStdString(), "Libellé formation");
    EXPECT_EQ(native<QComboBox>("Cbo_EtudeAidant").lineEdit()->accessibleName().toStdString(),
              "Etudes");
    EXPECT_EQ(name("Txt_ExpProfAidant(2)"), "Expériences 3");
    EXPECT_EQ(name("Txt_DatDispoAidant"), "Date début disponibilité");
    EXPECT_EQ(name("Lst_DifEmpl"), "Employeur, Fin contrat, Acquis, Consommés, Restants");
    EXPECT_EQ(name("Cmd_SelectSect"), "Choisir les activités sélectionnées");
    form->form().visit([&](widgets::Control& control) {
        EXPECT_TRUE(!control.takesFocus() ||
                    dynamic_cast<widgets::ComboBox*>(&control) != nullptr ||
                    !name(control.fullName()).empty())
            << control.fullName();
    });
}

} // namespace
} // namespace vorandine::qt_test
