// The window of the help: a whole page, beside forms that go on undisturbed.
#include "frontends/qt/HelpWindow.h"
#include "unit/qt_support.h"

#include <gtest/gtest.h>

#include <QContextMenuEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QTextBlock>
#include <QTimer>

#include <algorithm>
#include <cstdlib>
#include <set>

namespace vorandine::qt_test {
namespace {

const widgets::HelpPage Page{"FormationVorandine.htm", "S", "Formations et expériences"};

std::vector<qt::HelpWindow*> helpWindows() {
    std::vector<qt::HelpWindow*> shown;
    for (QWidget* const widget : QApplication::topLevelWidgets())
        if (auto* const help = dynamic_cast<qt::HelpWindow*>(widget))
            shown.push_back(help);
    return shown;
}

// Each run of text or picture on the page.
void visit(const QTextDocument& page, const std::function<void(const QTextCharFormat&)>& visitor) {
    for (QTextBlock block = page.begin(); block.isValid(); block = block.next())
        for (auto at = block.begin(); !at.atEnd(); ++at)
            visitor(at.fragment().charFormat());
}

class QtHelp : public testing::Test, protected Desk {
  protected:
    // The form's surface asks for the page, as the menu of a control does.
    void SetUp() override {
        form.MouseDown = [this](const widgets::MouseEvent& event) {
            if (event.button == 2)
                world.popupMenu(menu);
        };
        entry.Click = [this] { world.showHelp(Page); };
        menu.entries().push_back(&entry);
        first.LostFocus = [this] { log += "left "; };
        show();
    }

    qt::HelpWindow& ask() {
        QTest::mouseClick(window->windowHandle(), Qt::RightButton, {},
                          QPoint(window->width() - 3, window->height() - 3));
        QMenu* const popup = world.openMenu();
        QTest::mouseClick(popup->windowHandle(), Qt::LeftButton, {},
                          popup->actionGeometry(popup->actions().at(0)).center());
        QCoreApplication::processEvents();
        return *helpWindows().at(0);
    }

    widgets::Menu menu{"Mnu_Aide", "Aide", true};
    widgets::Menu entry{"Mnu_Sommaire", "Sommaire", true};
};

TEST_F(QtHelp, EveryPictureIsThereAndEveryLinkLeadsSomewhere) {
    qt::HelpWindow& help = ask();
    std::set<QString> anchors;
    std::set<QString> links;
    int pictures = 0;
    visit(*help.document(), [&](const QTextCharFormat& format) {
        for (const QString& name : format.anchorNames())
            anchors.insert('#' + name);
        if (!format.anchorHref().isEmpty())
            links.insert(format.anchorHref());
        if (!format.isImageFormat())
            return;
        ++pictures;
        const QString name = format.toImageFormat().name();
        const QVariant picture =
            help.document()->resource(QTextDocument::ImageResource, help.source().resolved(name));
        EXPECT_GT(picture.value<QImage>().width(), 0) << name.toStdString();
    });
    EXPECT_GE(pictures, 4);
    EXPECT_GE(links.size(), 20U);
    for (const QString& link : links)
        EXPECT_EQ(anchors.count(link), 1U) << link.toStdString();
    for (const QString& anchor : anchors)
        EXPECT_EQ(links.count(anchor), 1U) << anchor.toStdString() << " is not in the summary";
}

TEST_F(QtHelp, TheFormGoesOnBesideItAndOneWindowServesAll) {
    type(QStringLiteral("ab"));
    qt::HelpWindow& help = ask();
    EXPECT_TRUE(help.isVisible() && help.isActiveWindow());
    EXPECT_EQ(help.verticalScrollBar()->value(), 0);
    EXPECT_EQ(help.windowTitle(), QStringLiteral("Aide : Formations et expériences"));

    // Back on the form, everything is as it was.
    window->activateWindow();
    QCoreApplication::processEvents();
    EXPECT_TRUE(native(first).hasFocus());
    EXPECT_EQ(taken(), "");
    type(QStringLiteral("c"));
    EXPECT_EQ(first.Text(), "abc");
    press(button);
    EXPECT_EQ(taken(), "left click ");

    // Asked again, it is where it was read; closed, it begins anew.
    help.verticalScrollBar()->setValue(500);
    EXPECT_EQ(&ask(), &help);
    EXPECT_TRUE(help.isActiveWindow());
    EXPECT_EQ(help.verticalScrollBar()->value(), 500);
    QTest::keyClick(help.windowHandle(), Qt::Key_Escape);
    EXPECT_FALSE(help.isVisible());
    ask();
    EXPECT_EQ(helpWindows().size(), 1U);
    EXPECT_TRUE(help.isVisible());
    EXPECT_EQ(help.verticalScrollBar()->value(), 0);
}

TEST_F(QtHelp, TheKeyboardFollowsLinksAndComesBack) {
    qt::HelpWindow& help = ask();
    const auto key = [&](Qt::Key code, Qt::KeyboardModifiers with = Qt::NoModifier) {
        QTest::keyClick(help.windowHandle(), code, with);
    };
    const auto place = [&] { return help.verticalScrollBar()->value(); };
    key(Qt::Key_Tab);
    key(Qt::Key_Tab);
    const int before = place();
    key(Qt::Key_Return);
    const int followed = place();
    EXPECT_GT(followed, before);
    key(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(place(), before);
    key(Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(place(), followed);
    key(Qt::Key_PageDown);
    EXPECT_GT(place(), followed);
}

TEST_F(QtHelp, TextAndPicturesGrowTogetherAndTheLineReadStays) {
    qt::HelpWindow& help = ask();
    const auto widest = [&] {
        int width = 0;
        visit(*help.document(), [&](const QTextCharFormat& format) {
            if (format.isImageFormat())
                width = std::max(
                    width, help.document()
                               ->resource(QTextDocument::ImageResource,
                                          help.source().resolved(format.toImageFormat().name()))
                               .value<QImage>()
                               .width());
        });
        return width;
    };
    const auto line = [&] {
        return help.cursorForPosition(QPoint(0, 0)).block().text().trimmed().toStdString();
    };
    help.resize(1000, 600);
    help.setZoom(1.0);
    const int before = widest();
    help.scrollToAnchor(QStringLiteral("activites"));
    const std::string read = line();
    EXPECT_EQ(read, "Les activités");
    const double text = help.document()->defaultFont().pixelSize();
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(help.windowHandle(), Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_GT(help.document()->defaultFont().pixelSize(), text * 1.2);
    EXPECT_GT(widest(), before * 1.2);
    EXPECT_EQ(line(), read);
    help.setZoom(5.0);
    help.resize(400, 600);
    QCoreApplication::processEvents();
    EXPECT_LT(widest(), help.viewport()->width());
    EXPECT_GT(widest(), 200);
    QTest::keyClick(help.windowHandle(), Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(help.zoom(), 1.0);
    EXPECT_EQ(line(), read);
}

TEST_F(QtHelp, LinksCanBeReadOnADarkGroundToo) {
    qt::HelpWindow& help = ask();
    help.scrollToAnchor(QStringLiteral("soldes"));
    const int place = help.verticalScrollBar()->value();
    for (const auto& [ground, writing] :
         {std::pair(QColor(30, 30, 30), QColor(Qt::white)), {QColor(Qt::white), Qt::black}}) {
        QPalette palette = help.palette();
        palette.setColor(QPalette::Base, ground);
        palette.setColor(QPalette::Text, writing);
        help.setPalette(palette);
        int links = 0;
        visit(*help.document(), [&](const QTextCharFormat& format) {
            if (format.anchorHref().isEmpty())
                return;
            ++links;
            const int contrast = qGray(format.foreground().color().rgb()) - qGray(ground.rgb());
            EXPECT_GT(std::abs(contrast), 100);
        });
        EXPECT_GE(links, 20);
        EXPECT_EQ(help.verticalScrollBar()->value(), place);
    }
}

TEST_F(QtHelp, TheMenuKeyFindsItWhereNothingHasTheFocus) {
    widgets::Form bare;
    widgets::UserControl surface;
    bare.place({0, 0, 3000, 3000});
    surface.place({0, 0, 3000, 3000});
    surface.MouseDown = form.MouseDown;
    bare.add(surface);
    qt::FormWindow other(bare, world);
    other.show();
    QContextMenuEvent keyed(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(&other, &keyed);
    ASSERT_NE(world.openMenu(), nullptr);
    EXPECT_EQ(world.openMenu()->parent(), &other);
}

TEST_F(QtHelp, APageThatIsNotThereIsAnErrorInFrench) {
    try {
        world.showHelp({"Autre.htm", "S", "Autre"});
        ADD_FAILURE() << "a page that is not there was shown";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), errors::HelpMissing);
        EXPECT_STREQ(error.what(), "Ce programme n'a pas de page d'aide « Autre.htm ».");
    }
    for (const qt::HelpWindow* const help : helpWindows())
        EXPECT_FALSE(help->isVisible());
}

TEST_F(QtHelp, AProgramEndsWithItsLastWindowWhateverIsBeingRead) {
    QWidget last;
    last.show();
    ask();
    window->close();
    QApplication::setQuitOnLastWindowClosed(true);
    bool ended = true;
    QTimer::singleShot(0, &last, [&] { last.close(); });
    QTimer::singleShot(5000, &last, [&] {
        ended = false;
        QCoreApplication::quit();
    });
    QApplication::exec();
    QApplication::setQuitOnLastWindowClosed(false);
    EXPECT_TRUE(ended);
}

} // namespace
} // namespace vorandine::qt_test
