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

    // What stands on a tab is made when it first comes to the front.
    void showTabs(std::initializer_list<int> tabs) {
        for (const int tab : tabs) {
            widgets::showTab(at<widgets::TabContainer>("Ong_Vorandine"), tab);
            window->sync();
        }
    }

    template <typename Kind>
    [[nodiscard]] Kind& at(const std::string& name) const {
        return control_test::at<Kind>(*form, name);
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
    showTabs({2, 1, 0});
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

// A stretch of ink in a line of a list that is not selected, in pixels of the list's parent.
struct Ink {
    int left = 0;
    int right = 0;
    bool red = false;
};

std::vector<Ink> inkOfLine(qt::ListWidget& list, int line) {
    const QImage seen = list.viewport()->grab().toImage();
    const QRect row = list.visualRect(list.model()->index(line, 0));
    const QColor ground = list.palette().color(QPalette::Base);
    const int corner = list.viewport()->mapTo(list.parentWidget(), QPoint()).x();
    const int apart = list.fontMetrics().horizontalAdvance("0"); // more than a comma
    std::vector<Ink> found;
    for (int x = 0; x < seen.width(); ++x)
        for (int y = row.top(); y <= row.bottom(); ++y) {
            const QColor colour = seen.pixelColor(x, y);
            if (std::abs(colour.lightness() - ground.lightness()) < 90)
                continue;
            if (found.empty() || corner + x > found.back().right + apart)
                found.push_back({corner + x, corner + x, false});
            found.back().right = corner + x;
            found.back().red = found.back().red || colour.red() > colour.green() + 90;
        }
    return found;
}

TEST_F(QtLooks, DifColumnsStandUnderTheirHeadsAndNegativeBalancesAreRed) {
    for (const std::string employer : {"PSD", "ZZZ"}) {
        desk.put("CONTRAT", "00012*" + employer, {{3, {employer}}, {8, {"20071231"}}});
        desk.put("ASSOCIATION", employer, {{1, {std::string(35, 'W')}}});
    }
    control_test::Content ledger;
    for (int line = 0; line < 20; ++line)
        for (const auto& [attribute, value] : {std::pair{1, "20060301"},
                                               {2, "9999999"},
                                               {3, "9999999"},
                                               {4, "-9999999"},
                                               {5, "MAN"}})
            ledger[attribute].emplace_back(value);
    desk.put("DIFAIDANT", "00012PSD", ledger);
    desk.put("DIFAIDANT", "00012ZZZ", ledger);
    desk.put("TABLES", "FORMPRO", {{2, {"MAN"}}, {3, {std::string(35, 'W')}}});
    open(1);
    showTabs({2});
    widgets::doubleClickLine(at<widgets::ListBox>("Lst_DifEmpl"), 1);
    widgets::clickLine(at<widgets::ListBox>("Lst_DetailDif"), 1);
    window->sync();
    const auto overlaps = [&](const Ink& ink, const std::string& other) {
        const QRect place = native<QWidget>(other).geometry();
        EXPECT_TRUE(ink.left < place.right() && place.left() < ink.right)
            << other << " at " << window->zoom() << ": " << ink.left << " to " << ink.right;
    };
    for (const double zoom : {0.8, 1.0, 1.15, 1.5, 2.0, 3.0}) {
        window->setZoom(zoom);
        auto& detail = native<qt::ListWidget>("Lst_DetailDif");
        const std::vector<Ink> line = inkOfLine(detail, 0);
        ASSERT_EQ(line.size(), 5U) << zoom;
        for (std::size_t i = 0; i < line.size(); ++i) {
            overlaps(line[i], std::vector{"Label7", "Label8", "Label9", "Label10", "Label11"}[i]);
            overlaps(line[i], std::vector{"Txt_DateDif", "Txt_DroitDif", "Txt_FormDif",
                                          "Txt_HreDif", "Txt_SoldeDif"}[i]);
            EXPECT_EQ(line[i].red, i == 4) << i;
        }
        EXPECT_TRUE(detail.verticalScrollBar()->isVisible());
        EXPECT_LT(line.back().right, detail.geometry().left() + detail.viewport()->width());
        // On the selected line, the balance is red on the ground of the others.
        EXPECT_TRUE(inkOfLine(detail, 1).back().red);

        const std::vector<Ink> sums = inkOfLine(native<qt::ListWidget>("Lst_DifEmpl"), 0);
        ASSERT_EQ(sums.size(), 5U) << zoom;
        for (std::size_t i = 0; i < sums.size(); ++i)
            overlaps(sums[i], std::vector{"Label1", "Label2", "Label4", "Label5", "Label6"}[i]);
    }
}

TEST_F(QtLooks, ANoticeIsReadWholeAndLeavesNothingBehind) {
    open(1);
    showTabs({2});
    auto& label = at<widgets::Label>("Etq_MessageDif");
    auto& seen = native<QLabel>("Etq_MessageDif");
    ASSERT_FALSE(seen.isEnabled()); // no employer is open
    EXPECT_FALSE(seen.autoFillBackground());
    for (const int length : {40, 110}) {
        label.Caption(std::string(static_cast<std::size_t>(length), 'm'));
        window->sync();
        const QString whole = QString::fromStdString(label.Caption());
        EXPECT_TRUE(seen.text() == whole || seen.toolTip() == whole) << length;
        const QColor ground = seen.palette().color(QPalette::Disabled, QPalette::Window);
        EXPECT_EQ(seen.grab().toImage().pixelColor(1, 1), ground);
        EXPECT_GT(ground.lightness() -
                      seen.palette().color(QPalette::Disabled, QPalette::WindowText).lightness(),
                  120);
    }
    label.Caption("");
    window->sync();
    EXPECT_TRUE(seen.text().isEmpty() && seen.toolTip().isEmpty() && !seen.autoFillBackground());
}

TEST_F(QtLooks, ClosedFieldsAreReadInLightAndDark) {
    open(1);
    at<widgets::TextBox>("Txt_DatFormAidant").Text("12/03/2004"); // which is closed
    window->sync();
    const QPalette before = QApplication::palette();
    QPalette dark(QColor(49, 54, 59));
    dark.setColor(QPalette::Disabled, QPalette::Text, QColor(70, 70, 70));
    for (const QPalette& palette : {before, dark}) {
        QApplication::setPalette(palette);
        const QPalette& field = native<QWidget>("Txt_DatFormAidant").palette();
        const auto contrast = [&](QPalette::ColorRole ink, QPalette::ColorRole ground) {
            return std::abs(field.color(QPalette::Disabled, ink).lightness() -
                            field.color(QPalette::Disabled, ground).lightness());
        };
        EXPECT_GT(contrast(QPalette::Text, QPalette::Base), 90);
        EXPECT_GT(contrast(QPalette::HighlightedText, QPalette::Highlight), 90);
    }
    QApplication::setPalette(before);
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
    showTabs({1, 2, 0});
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
