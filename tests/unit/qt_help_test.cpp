// The window of the help: a whole page, beside forms that go on undisturbed, read at any size and
// on any ground.
#include "frontends/qt/HelpWindow.h"
#include "unit/qt_support.h"

#include <gtest/gtest.h>

#include <QScrollBar>
#include <QTextBlock>

#include <algorithm>
#include <cstdlib>
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

TEST_F(QtHelp, EveryPictureIsThereAndEveryLinkLeadsSomewhereAndIsRead) {
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

    help.scrollToAnchor(QStringLiteral("soldes"));
    const int place = help.verticalScrollBar()->value();
    for (const auto& [ground, writing] :
         {std::pair(QColor(30, 30, 30), QColor(Qt::white)), {QColor(Qt::white), Qt::black}}) {
        QPalette palette = help.palette();
        palette.setColor(QPalette::Base, ground);
        palette.setColor(QPalette::Text, writing);
        help.setPalette(palette);
        visit(*help.document(), [&](const QTextCharFormat& format) {
            const int contrast = qGray(format.foreground().color().rgb()) - qGray(ground.rgb());
            EXPECT_TRUE(format.anchorHref().isEmpty() || std::abs(contrast) > 100);
        });
        EXPECT_EQ(help.verticalScrollBar()->value(), place);
    }
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

TEST_F(QtHelp, TextAndPicturesGrowTogetherAndTheLineReadStays) {
    qt::HelpWindow& help = ask();
    const auto picture = [&] {
        int widest = 0;
        visit(*help.document(), [&](const QTextCharFormat& format) {
            if (format.isImageFormat())
                widest = std::max(widest, pictureWidth(help, format));
        });
        return widest;
    };
    help.resize(1000, 600);
    help.setZoom(1.0);
    const int before = picture();
    const double text = help.document()->defaultFont().pixelSize();
    help.scrollToAnchor(QStringLiteral("activites"));
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(help.windowHandle(), Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_GT(help.document()->defaultFont().pixelSize(), text * 1.2);
    EXPECT_GT(picture(), before * 1.2);
    help.setZoom(5.0);
    help.resize(400, 600);
    QCoreApplication::processEvents();
    EXPECT_LT(picture(), help.viewport()->width());
    EXPECT_EQ(help.cursorForPosition(QPoint(0, 0)).block().text().trimmed(), "Les activités");
}

} // namespace
} // namespace vorandine::qt_test
