// The window of the help: a whole page, beside forms that go on undisturbed.
#include "frontends/qt/HelpWindow.h"
#include "unit/qt_support.h"

#include <gtest/gtest.h>

#include <QScrollBar>
#include <QTextBlock>

#include <set>

namespace vorandine::qt_test {
namespace {

// Each run of text or picture on the page.
void visit(const QTextDocument& page, const std::function<void(const QTextCharFormat&)>& visitor) {
    for (QTextBlock block = page.begin(); block.isValid(); block = block.next())
        for (auto at = block.begin(); !at.atEnd(); ++at)
            visitor(at.fragment().charFormat());
}

int pictureWidth(const qt::HelpWindow& help, const QTextCharFormat& format) {
    const QUrl name = help.source().resolved(format.toImageFormat().name());
    return help.document()->resource(QTextDocument::ImageResource, name).value<QImage>().width();
}

class QtHelp : public testing::Test, protected Desk {
  protected:
    QtHelp() { show(); }

    qt::HelpWindow& ask() {
        world.showHelp({"FormationVorandine.htm", "S", "Formations et expériences"});
        QCoreApplication::processEvents();
        for (QWidget* const widget : QApplication::topLevelWidgets())
            if (auto* const help = dynamic_cast<qt::HelpWindow*>(widget))
                return *help;
        throw std::logic_error("no help window");
    }
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
        pictures += format.isImageFormat() ? 1 : 0;
        EXPECT_TRUE(!format.isImageFormat() || pictureWidth(help, format) > 0);
    });
    EXPECT_GE(pictures, 4);
    EXPECT_GE(links.size(), 20U);
    EXPECT_EQ(links, anchors) << "and all anchors stand in the summary";
}

TEST_F(QtHelp, TheFormGoesOnBesideItAndOneWindowServesAll) {
    first.LostFocus = [this] { log += "left "; };
    qt::HelpWindow& help = ask();
    EXPECT_TRUE(help.isVisible() && help.isActiveWindow());
    EXPECT_EQ(help.windowTitle(), QStringLiteral("Aide : Formations et expériences"));
    // Back on the form, everything is as it was.
    window->activateWindow();
    QCoreApplication::processEvents();
    EXPECT_TRUE(native(first).hasFocus());
    type(QStringLiteral("c"));
    EXPECT_EQ(taken() + first.Text(), "c");
    // Asked again, it is where it was read; closed, it begins anew.
    for (const int place : {500, 0}) {
        help.verticalScrollBar()->setValue(500);
        if (place == 0)
            QTest::keyClick(help.windowHandle(), Qt::Key_Escape);
        EXPECT_EQ(help.isVisible(), place > 0);
        EXPECT_EQ(&ask(), &help);
        EXPECT_TRUE(help.isActiveWindow());
        EXPECT_EQ(help.verticalScrollBar()->value(), place);
    }
    EXPECT_THROW(world.showHelp({"Autre.htm", "S", "Autre"}), Error);
}

} // namespace
} // namespace vorandine::qt_test
