// What a person sees of the real screen: nothing cut off at any size, one table, columns under
// their heads, what is closed can be read, and a name for all.
#include "frontends/qt/ListView.h"
#include "unit/control_support.h"
#include "unit/qt_support.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTabBar>

namespace vorandine::qt_test {
namespace {

constexpr double Zooms[] = {0.8, 1.0, 1.15, 1.5, 2.0, 3.0};

class QtLooks : public testing::Test {
  protected:
    control_test::Desk desk;
    qt::QtWorld world;
    std::unique_ptr<host::CaregiverForm> form;
    std::unique_ptr<qt::FormWindow> window;

    // What stands on a tab is made when it first comes to the front.
    void open(int lines, std::initializer_list<int> tabs = {}) {
        desk.put("FORMVORANDINE", "00012", control_test::caregiver(lines));
        form = desk.open("00012");
        window = std::make_unique<qt::FormWindow>(form->form(), world);
        window->show();
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
        return static_cast<Native&>(*window->widgetFor(at<widgets::Control>(name)));
    }
};

TEST_F(QtLooks, NoCaptionIsCutOffAtAnyZoom) {
    open(3, {2, 1, 0});
    for (const double zoom : Zooms) {
        window->setZoom(zoom);
        const auto fits = [&](const QWidget& widget, QString text, int width) {
            text = text.replace("&&", "+").remove('&');
            EXPECT_LE(widget.fontMetrics().horizontalAdvance(text), width)
                << text.toStdString() << " at " << zoom;
        };
        for (const QAbstractButton* const each : window->findChildren<QAbstractButton*>())
            fits(*each, each->text(), each->width());
        for (const QLabel* const each : window->findChildren<QLabel*>()) {
            fits(*each, each->accessibleName(), each->width());
            EXPECT_TRUE(each->text() == each->accessibleName() &&
                        each->fontMetrics().height() <= each->height())
                << each->text().toStdString() << " at " << zoom;
        }
        const auto& bar = *window->findChild<QTabBar*>();
        EXPECT_GE(bar.width(), bar.sizeHint().width()) << zoom;
        // The columns whose lines have a fixed form.
        for (const auto& [name, line] : {std::pair("Lst_DatFormAidant", "12/03/2004"),
                                         std::pair("Lst_HhFormAidant", "9999,99")}) {
            const auto& list = native<qt::ListWidget>(name);
            fits(list, line, list.viewport()->width() - 5);
        }
    }
}

TEST_F(QtLooks, TheTrainingListsAreOneTable) {
    open(5000);
    const char* const columns[] = {"Lst_DatFormAidant", "Lst_CodFormAidant", "Lst_HhFormAidant",
                                   "Lst_ObsFormAidant", "Lst_DifFormAidant", "Bdv_FormAidant"};
    const auto inStep = [&](int top, int current) {
        for (std::size_t i = 0; i < 5; ++i) {
            const auto& list = native<qt::ListWidget>(columns[i]);
            EXPECT_EQ(list.verticalScrollBar()->value(), top) << columns[i];
            EXPECT_EQ(at<widgets::ListBox>(columns[i]).ListIndex(), current) << columns[i];
            EXPECT_FALSE(list.verticalScrollBar()->isVisible());
            EXPECT_EQ(list.geometry().right() + 1,
                      native<QWidget>(columns[i + 1]).geometry().left());
        }
    };
    auto& labels = native<qt::ListWidget>("Lst_CodFormAidant");
    const int page = labels.linesInPage();
    QWheelEvent wheel(QPointF(5, 5), labels.viewport()->mapToGlobal(QPointF(5, 5)), {}, {0, -240},
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(labels.viewport(), &wheel);
    inStep(6, -1);
    QTest::mouseClick(labels.viewport(), Qt::LeftButton, {}, QPoint(5, 5));
    inStep(6, 6);
    QTest::keyClick(&labels, Qt::Key_End);
    inStep(5000 - page, 4999);
    QTest::keyClick(&labels, Qt::Key_PageUp);
    inStep(5000 - page, 5000 - page);
    // Zoomed, they still end where the next one begins.
    window->setZoom(1.37);
    inStep(labels.verticalScrollBar()->value(), 5000 - page);
}

// A stretch of ink in a line of a list, in pixels of the list's parent.
struct Ink {
    int left = 0;
    int right = 0;
    bool red = false;
};

std::vector<Ink> inkOfLine(qt::ListWidget& list, int line) {
    const QImage seen = list.viewport()->grab().toImage();
    const QRect row = list.visualRect(list.model()->index(line, 0));
    const int ground = list.palette().color(QPalette::Base).lightness();
    const int corner = list.viewport()->mapTo(list.parentWidget(), QPoint()).x();
    const int apart = list.fontMetrics().horizontalAdvance("0"); // more than a comma
    std::vector<Ink> found;
    for (int x = 0; x < seen.width(); ++x)
        for (int y = row.top(); y <= row.bottom(); ++y) {
            const QColor colour = seen.pixelColor(x, y);
            if (std::abs(colour.lightness() - ground) < 90)
                continue;
            if (found.empty() || corner + x > found.back().right + apart)
                found.push_back({corner + x, corner + x, false});
            found.back().right = corner + x;
            found.back().red = found.back().red || colour.red() > colour.green() + 90;
        }
    return found;
}

TEST_F(QtLooks, DifColumnsStandUnderTheirHeadsAndNegativeBalancesAreRed) {
    const std::string wide(35, 'W');
    const auto lines = [](const char* value) { return std::vector<std::string>(20, value); };
    desk.putText("CONTRAT", "00012*PSD", "^^PSD^^^^^20071231");
    desk.putText("ASSOCIATION", "PSD", wide);
    desk.put("DIFAIDANT", "00012PSD",
             {{1, lines("20060301")},
              {2, lines("9999999")},
              {3, lines("9999999")},
              {4, lines("-9999999")},
              {5, lines("MAN")}});
    desk.putText("TABLES", "FORMPRO", "^MAN^" + wide);
    open(1, {2});
    auto& sums = native<qt::ListWidget>("Lst_DifEmpl");
    auto& detail = native<qt::ListWidget>("Lst_DetailDif");
    const auto under = [&](const std::vector<Ink>& line, const std::vector<std::string>& heads) {
        ASSERT_EQ(line.size(), heads.size()) << window->zoom();
        for (std::size_t i = 0; i < line.size(); ++i) {
            const QRect place = native<QWidget>(heads[i]).geometry();
            EXPECT_TRUE(line[i].left < place.right() && place.left() < line[i].right)
                << heads[i] << " at " << window->zoom();
        }
    };
    for (const double zoom : Zooms) {
        window->setZoom(zoom);
        under(inkOfLine(sums, 0), {"Label1", "Label2", "Label4", "Label5", "Label6"});
    }
    widgets::doubleClickLine(at<widgets::ListBox>("Lst_DifEmpl"), 0);
    widgets::clickLine(at<widgets::ListBox>("Lst_DetailDif"), 1);
    window->sync();
    for (const double zoom : Zooms) {
        window->setZoom(zoom);
        const std::vector<Ink> line = inkOfLine(detail, 0);
        under(line, {"Label7", "Label8", "Label9", "Label10", "Label11"});
        under(line, {"Txt_DateDif", "Txt_DroitDif", "Txt_FormDif", "Txt_HreDif", "Txt_SoldeDif"});
        for (std::size_t i = 0; i < line.size(); ++i)
            EXPECT_EQ(line[i].red, i == 4) << i;
        EXPECT_TRUE(detail.verticalScrollBar()->isVisible());
        EXPECT_LT(line.back().right, detail.geometry().left() + detail.viewport()->width());
        // On the selected line, the balance is red on the ground of the others.
        EXPECT_TRUE(inkOfLine(detail, 1).back().red);
    }
}

TEST_F(QtLooks, WhatIsClosedIsReadWholeInLightAndDark) {
    open(1, {2, 0});
    at<widgets::TextBox>("Txt_DatFormAidant").Text("12/03/2004"); // which is closed
    window->sync();
    const auto contrast = [](const QWidget& of, QPalette::ColorRole ink, QPalette::ColorRole on) {
        return std::abs(of.palette().color(QPalette::Disabled, ink).lightness() -
                        of.palette().color(QPalette::Disabled, on).lightness());
    };
    const QPalette before = QApplication::palette();
    QPalette dark(QColor(49, 54, 59));
    dark.setColor(QPalette::Disabled, QPalette::Text, QColor(70, 70, 70));
    for (const QPalette& palette : {before, dark}) {
        QApplication::setPalette(palette);
        const auto& field = native<QWidget>("Txt_DatFormAidant");
        EXPECT_GT(contrast(field, QPalette::Text, QPalette::Base), 90);
        EXPECT_GT(contrast(field, QPalette::HighlightedText, QPalette::Highlight), 90);
    }
    QApplication::setPalette(before);
    // So is a notice, on a ground of its own.
    at<widgets::Label>("Etq_MessageDif").Caption(std::string(110, 'm'));
    window->sync();
    const auto& seen = native<QLabel>("Etq_MessageDif");
    EXPECT_EQ(seen.toolTip().size(), 110);
    EXPECT_GT(contrast(seen, QPalette::WindowText, QPalette::Window), 120);
}

TEST_F(QtLooks, EveryControlHasANameForAssistiveTools) {
    open(1, {1, 2, 0});
    const auto name = [&](const std::string& control) {
        return QAccessible::queryAccessibleInterface(&native<QWidget>(control))
            ->text(QAccessible::Name)
            .toStdString();
    };
    EXPECT_EQ(name("Txt_ExpProfAidant(2)"), "Expériences 3");
    EXPECT_EQ(name("Txt_DatDispoAidant"), "Date début disponibilité");
    EXPECT_EQ(name("Lst_DifEmpl"), "Employeur, Fin contrat, Acquis, Consommés, Restants");
    EXPECT_EQ(name("Cmd_SelectSect"), "Choisir les activités sélectionnées");
    // A combo box is named by its label, its field by itself.
    const auto labels = QAccessible::queryAccessibleInterface(&native<QWidget>("Cbo_CodFormAidant"))
                            ->relations(QAccessible::Label);
    ASSERT_EQ(labels.size(), 1);
    EXPECT_EQ(labels.front().first->text(QAccessible::Name).toStdString(), "Libellé formation");
    EXPECT_EQ(native<QComboBox>("Cbo_EtudeAidant").lineEdit()->accessibleName(), "Etudes");
    form->form().visit([&](widgets::Control& control) {
        EXPECT_TRUE(!control.takesFocus() ||
                    dynamic_cast<widgets::ComboBox*>(&control) != nullptr ||
                    !name(control.fullName()).empty())
            << control.fullName();
    });
}

} // namespace
} // namespace vorandine::qt_test
