// The desktop host as its user works it, on a platform without a screen: the list by keyboard, the
// windows it opens, what it tells of them, and how it ends.
#include "apps/desktop/CaregiverWindow.h"
#include "apps/desktop/MainWindow.h"
#include "apps/desktop/NewCaregiverDialog.h"
#include "apps/desktop/Options.h"
#include "unit/store_support.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemModel>
#include <QAccessible>
#include <QApplication>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <QTextEdit>
#include <QTimer>
#include <QTreeView>

namespace vorandine::desktop {
namespace {

class Desktop : public testing::Test {
  protected:
    std::shared_ptr<store::Engine> engine = store::openEngine("memory:", store::OpenMode::Create);
    std::shared_ptr<store::Store> store = std::make_shared<store::Store>(engine);
    std::unique_ptr<Session> session;
    Settings settings;
    std::unique_ptr<MainWindow> list;

    void SetUp() override {
        // A file as the control writes it: leaving it unchanged asks nothing.
        const char* const file = "D^^1994^^^^^^]]]]]]^A1^20010903^20010903";
        const char* const records[][3] = {{"TABLES", "DIPLOMES", ""},
                                          {"TABLES", "FORMPRO", ""},
                                          {"TABLES", "QUALIF", ""},
                                          {"ACTIVITES", "A1", "Ménage"},
                                          {"DROITS", "sylvie*VORANDINEDROIT", "2^1^*"},
                                          {"DROITS", "odile*VORANDINEDROIT", "1^1^*"},
                                          {"AIDANT", "00012", "DURAND Marie"},
                                          {"AIDANT", "00031", "ÉTIENNE Zoé"},
                                          {"AIDANT", "00020", "FABRE Marie"},
                                          {"FORMVORANDINE", "00105", file},
                                          {"FORMVORANDINE", "00012", file}};
        for (const auto& [name, key, text] : records)
            put(name, key, text);
    }

    // How boxes with three buttons are answered, others by their first, and how many came.
    widgets::Answer answer = widgets::Answer::Cancel;
    int asked = 0;

    void put(const std::string& file, const std::string& key, const std::string& text) {
        store->OpenFile(file)->WriteRecord(key, store_test::marks(text));
    }

    void show(const std::string& user = "sylvie") {
        session = std::make_unique<Session>(store, "memory:", host::User{user, user});
        session->world().hooks(
            {.boxShown =
                 [this](const widgets::Message& message, QMessageBox& box) {
                     ++asked;
                     const bool three = message.buttons == widgets::Buttons::YesNoCancel;
                     qt::buttonFor(box, three ? answer : widgets::Answer::Yes)->click();
                 },
             .modalShown = {},
             .menuShown = {},
             .helpShown = {}});
        list = std::make_unique<MainWindow>(*session, settings);
        list->show();
        list->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(list.get()));
    }
    void TearDown() override {
        list.reset();
        session.reset();
    }

    template <typename Widget>
    Widget& part(const char* name) {
        return *list->findChild<Widget*>(name);
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    void type(const char* text) { QTest::keyClicks(QApplication::focusWidget(), text); }

    std::string cell(int row, int column) {
        return part<QTreeView>("aidants")
            .model()
            ->index(row, column)
            .data()
            .toString()
            .toStdString();
    }
    int rows() { return part<QTreeView>("aidants").model()->rowCount(); }
    // One column of what the list shows, the current line in brackets.
    std::string shown(int column) {
        const int current = part<QTreeView>("aidants").currentIndex().row();
        std::string lines;
        for (int row = 0; row < rows(); ++row)
            lines += (row == current ? "[" + cell(row, column) + "]" : cell(row, column)) + ';';
        return lines;
    }
    std::string situation(const std::string& code) {
        for (int row = 0; row < rows(); ++row)
            if (cell(row, 0) == code)
                return cell(row, 2);
        return "not shown";
    }
    // The file's window goes, and the list tells what became of it.
    void expectClosed(const std::string& code, const std::string& told) {
        ASSERT_TRUE(QTest::qWaitFor([&] { return situation(code) != "Ouvert"; }));
        EXPECT_NE(situation(code).find(told), std::string::npos) << situation(code);
    }
    std::string year(const std::string& code) {
        return store->OpenFile("FORMVORANDINE")->ReadRecord(code)(3);
    }

    static std::vector<qt::FormWindow*> files() {
        std::vector<qt::FormWindow*> open;
        for (QWidget* const widget : QApplication::topLevelWidgets())
            if (auto* const window = qobject_cast<qt::FormWindow*>(widget))
                if (window->isVisible())
                    open.push_back(window);
        return open;
    }
    static qt::FormWindow& file(const std::string& code) {
        for (qt::FormWindow* const window : files())
            if (window->form().Caption().find("(" + code + ")") != std::string::npos)
                return *window;
        throw std::runtime_error("no window shows " + code);
    }
    static void press(qt::FormWindow& window, const std::string& button) {
        auto& command = dynamic_cast<widgets::CommandButton&>(*window.form().find(button));
        window.gesture([&] { return widgets::click(command); });
    }
    static void change(qt::FormWindow& window) {
        dynamic_cast<widgets::TextBox&>(*window.form().find("Txt_AnDipAidant")).Text("1996");
    }
};

TEST_F(Desktop, ListIsSearchedSortedAndWorkedByKeyboardAlone) {
    show();
    EXPECT_EQ(shown(1), "[(nom inconnu)];DURAND Marie;ÉTIENNE Zoé;FABRE Marie;");
    EXPECT_EQ(part<QLabel>("nombre").text(), "4 aidants");
    type("MARIE");
    EXPECT_EQ(shown(1), "[DURAND Marie];FABRE Marie;");
    EXPECT_EQ(part<QLabel>("nombre").text(), "2 sur 4 aidants");
    press(Qt::Key_Down);
    EXPECT_EQ(QApplication::focusWidget(), &part<QTreeView>("aidants"));
    press(Qt::Key_Down);
    EXPECT_EQ(shown(1), "DURAND Marie;[FABRE Marie];");
    type(" d");
    EXPECT_EQ(QApplication::focusWidget(), &part<QLineEdit>("recherche"));
    EXPECT_EQ(shown(1), "[DURAND Marie];");
    press(Qt::Key_Escape);
    press(Qt::Key_1, Qt::ControlModifier);
    EXPECT_EQ(shown(0), "[00012];00020;00031;00105;");
    type("xyz");
    EXPECT_EQ(part<QLabel>("nombre").text(), "Aucun aidant ne correspond.");
    press(Qt::Key_Return);
    EXPECT_TRUE(files().empty());
}

TEST_F(Desktop, EachFileHasOneWindowAndTheListTellsWhatBecameOfIt) {
    show();
    type("durand");
    press(Qt::Key_Return);
    EXPECT_EQ(situation("00012"), "Ouvert");
    list->open({"00105", ""});
    list->open({"00012", "DURAND Marie"});
    ASSERT_EQ(files().size(), 2U);

    change(file("00012"));
    press(file("00012"), "Cmd_OK");
    expectClosed("00012", "Enregistré à ");
    EXPECT_EQ(files().size(), 1U);
    EXPECT_EQ(year("00012"), "1996");

    part<QLineEdit>("recherche").clear();
    file("00105").close();
    expectClosed("00105", "rien de changé");
    EXPECT_EQ(asked, 0);
    list->open({"00105", ""});
    EXPECT_EQ(situation("00105"), "Ouvert");
    press(Qt::Key_3, Qt::ControlModifier); // those without a situation stand last
    EXPECT_EQ(shown(2).substr(shown(2).size() - 2), ";;") << shown(2);
}

TEST_F(Desktop, WhatAnotherConnectionStoresIsToldInTheWindowOfThatFileAndReadAnewOnRequest) {
    put("CONTRAT", "00012*1", "^^ADM^ADMR");
    show();
    list->open({"00105", ""});
    list->open({"00012", "DURAND Marie"});
    qt::FormWindow& window = file("00012");
    const auto tabs = [&](int tab) {
        auto& strip = dynamic_cast<widgets::TabContainer&>(*window.form().find("Ong_Vorandine"));
        window.gesture([&] { return widgets::showTab(strip, tab); });
    };
    const auto employers = [&] {
        return dynamic_cast<widgets::ListBox&>(*window.form().find("Lst_DifEmpl")).List(0);
    };
    tabs(2);
    store::Store other(store->changes().engine().another());
    other.changes().user("odile");
    other.OpenFile("FORMVORANDINE")->DeleteRecord("00105");
    other.OpenFile("DIFAIDANT")->WriteRecord("00012ADM", store_test::marks("20060110^2000^^2000"));
    ASSERT_TRUE(QTest::qWaitForWindowActive(&file("00012")));
    const auto news = [&](const char* code) { return file(code).findChild<QFrame*>("news"); };
    ASSERT_TRUE(QTest::qWaitFor([&] { return news("00012") != nullptr; }));
    EXPECT_TRUE(news("00012")->accessibleName().startsWith("odile a enregistré ce dossier à "));
    EXPECT_EQ(news("00105"), nullptr);

    const auto pressIn = [&](const char* card) {
        window.findChild<QFrame*>(card)->findChild<QPushButton*>()->click();
    };
    pressIn("news");
    QString told;
    const auto read = [&] {
        QWidget* const dialog = QApplication::activeModalWidget();
        if (dialog == nullptr)
            return false;
        told = dialog->findChild<QTextEdit*>()->toPlainText();
        return dialog->close();
    };
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, read);
    poll.start(10);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !told.isEmpty(); }));
    poll.stop();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_NE(told.indexOf("odile, à "), -1) << told.toStdString();
    EXPECT_NE(told.indexOf("D.I.F., ADM : ajouté 10/01/2006 20,00"), -1) << told.toStdString();

    // Nothing changes by itself.
    EXPECT_EQ(employers().find("20,00"), std::string::npos) << employers();
    pressIn("employers");
    ASSERT_TRUE(QTest::qWaitFor([&] { return window.findChild<QFrame*>("employers") == nullptr; }));
    EXPECT_NE(employers().find("20,00"), std::string::npos) << employers();
    other.OpenFile("DIFAIDANT")->DeleteRecord("00012ADM");
    ASSERT_TRUE(QTest::qWaitFor([&] { return window.findChild<QFrame*>("employers") != nullptr; }));
    tabs(0); // who comes back is shown what is stored by then
    ASSERT_TRUE(QTest::qWaitFor([&] { return window.findChild<QFrame*>("employers") == nullptr; }));
}

TEST_F(Desktop, ListStaysWhereAFileRefusesToClose) {
    show();
    list->open({"00012", "DURAND Marie"});
    list->open({"00105", ""});
    change(file("00012"));
    int ends = 0;
    QObject::connect(list.get(), &MainWindow::closed, list.get(), [&] { ++ends; });
    EXPECT_FALSE(list->close());
    EXPECT_TRUE(list->isVisible());
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(ends, 0);
    EXPECT_TRUE(file("00012").isVisible());

    answer = widgets::Answer::No;
    EXPECT_TRUE(list->close());
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(year("00012"), "1994");
}

TEST_F(Desktop, FileThatCannotBeStoredKeepsNoOtherOpenAndIsLeftAtTheSecondAttempt) {
    put("FORMVORANDINE", "00020", "D"); // activities are still to be stored
    show();
    list->open({"00020", "FABRE Marie"});
    list->open({"00105", ""});
    engine->file("ACTIVITES")->write("A1", "\x01");
    answer = widgets::Answer::No;
    EXPECT_FALSE(list->close());
    QTimer::singleShot(0, [] { QApplication::activeModalWidget()->close(); }); // the error
    expectClosed("00105", "rien de changé");
    EXPECT_EQ(situation("00020"), "Ouvert");
    EXPECT_TRUE(list->close());
    EXPECT_EQ(engine->file("FORMVORANDINE")->read("00020"), "D");
}

TEST_F(Desktop, NewCaregiverIsCheckedStoredAndOpened) {
    show();
    type("Zoe");
    QTimer::singleShot(0, [] {
        auto* const dialog = qobject_cast<NewCaregiverDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        auto& code = *dialog->findChild<QLineEdit*>("code");
        dialog->findChild<QLineEdit*>("nom")->setText("MÉRY Ève");
        code.setText("0001");
        dialog->accept();
        EXPECT_TRUE(dialog->isVisible());
        EXPECT_TRUE(dialog->findChild<QLabel*>("refus")->text().contains("00012"));
        code.setText("00040");
        dialog->accept();
        EXPECT_FALSE(dialog->isVisible());
    });
    part<QPushButton>("nouveau").click();
    EXPECT_EQ(situation("00040"), "Ouvert");
    EXPECT_EQ(file("00040").form().Caption(), "MÉRY Ève (00040)");
    EXPECT_EQ(store->OpenFile("AIDANT")->ReadRecord("00040")(), "MÉRY Ève");
}

TEST_F(Desktop, WhoMayNotWriteAddsNobodyAndWhatCannotBeOpenedLeavesTheListUsable) {
    show("odile");
    EXPECT_FALSE(part<QPushButton>("nouveau").isEnabled());
    EXPECT_TRUE(part<QPushButton>("ouvrir").isEnabled());
    store->OpenFile("TABLES")->DeleteRecord("QUALIF");
    EXPECT_THROW(list->open({"00012", "DURAND Marie"}), Error);
    EXPECT_EQ(situation("00012"), "Erreur à l'ouverture");
    EXPECT_TRUE(files().empty());
    put("TABLES", "QUALIF", "");
    list->open({"00012", "DURAND Marie"});
    EXPECT_EQ(situation("00012"), "Ouvert");
    EXPECT_NE(file("00012").findChild<QWidget*>("consultation"), nullptr);
    EXPECT_THROW(session->objects().database->OpenFile("TABLES")->DeleteRecord("QUALIF"), Error);
}

TEST_F(Desktop, NoticesStandAboveTheFormWhichKeepsTheFocus) {
    show();
    list->open({"00012", "DURAND Marie"});
    qt::FormWindow& window = file("00012");
    auto& strip = *window.findChild<NoticeStrip*>();
    const auto shown = [&] {
        std::string names;
        for (const QFrame* const card : strip.findChildren<QFrame*>(QRegularExpression("^avis-")))
            names += card->isVisible() ? card->objectName().toStdString() + ' ' : "";
        return names;
    };
    const QWidget* const focus = window.focusWidget();
    const QWidget& form = *window.widgetFor(window.form());
    const QSize size = form.size();
    EXPECT_EQ(form.y(), 0);
    int pressed = 0;
    strip.tell({"avis-a", host::NoticeKind::Told, "<KARIM> a enregistré.", "", "Voir"},
               [&] { ++pressed; });
    strip.tell({"avis-b", host::NoticeKind::Warning, "Un enregistrement effacera :", "B & C", ""});
    strip.tell({"avis-c", host::NoticeKind::Failed, "Base injoignable.", "", ""});
    QCoreApplication::processEvents();
    EXPECT_EQ(shown(), "avis-b avis-c ");
    EXPECT_EQ(form.y(), window.headHeight());
    EXPECT_EQ(form.size(), size);
    EXPECT_EQ(window.focusWidget(), focus);
    QAccessibleInterface& card =
        *QAccessible::queryAccessibleInterface(strip.findChild<QFrame*>("avis-b"));
    EXPECT_EQ(card.role(), QAccessible::Notification);
    EXPECT_EQ(card.text(QAccessible::Name), "Un enregistrement effacera : B & C");

    press(Qt::Key_F6);
    EXPECT_TRUE(strip.findChild<QFrame*>("avis-c")->hasFocus());
    press(Qt::Key_Tab);
    press(Qt::Key_F6);
    press(Qt::Key_Return); // the others
    EXPECT_EQ(shown(), "avis-a avis-b avis-c ");
    strip.withdraw("avis-c");
    press(Qt::Key_F6);
    press(Qt::Key_F6);
    press(Qt::Key_Return);
    EXPECT_EQ(pressed, 1);
    press(Qt::Key_Escape);
    EXPECT_EQ(window.focusWidget(), focus);
    strip.withdraw("avis-a");
    strip.withdraw("avis-b");
    QCoreApplication::processEvents();
    EXPECT_EQ(form.y(), 0);
}

TEST(DesktopOptions, ComeInBothWritings) {
    const Options options = parse({"--user=sylvie", "sqlite:a=b", "--open", "00012"});
    EXPECT_EQ(*options.user + " " + options.store + " " + *options.open, "sylvie sqlite:a=b 00012");
    EXPECT_EQ(parse({"--store", "memory:"}).store, "memory:");
    const std::vector<std::string> wrong[] = {
        {"--user"},   {"--user="}, {"a", "b"},   {"--store", "a", "b"},
        {"--help=1"}, {"-x"},      {"--unknown"}};
    for (const auto& arguments : wrong)
        EXPECT_THROW((void)parse(arguments), UsageError) << arguments.front();
}

} // namespace
} // namespace vorandine::desktop

int main(int argc, char** argv) {
    // Neither a screen nor the settings of whoever runs the tests.
    const store_test::Folder folder;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("XDG_CONFIG_HOME", folder.path().c_str());
    const QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
