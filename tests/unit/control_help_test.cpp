// The help menu where a user's gestures do not tell all: other buttons, and one help object that
// several controls share.
#include "unit/control_support.h"
#include "widgets/Gestures.h"

#include <gtest/gtest.h>

#include <set>

namespace vorandine::control_test {
namespace {

TEST(ControlHelp, OnlyTheRightButtonOpensTheMenuAndOnlyOnFourSurfaces) {
    bool opened = false;
    headless::Callbacks callbacks;
    callbacks.popupMenu = [&](widgets::Menu& menu) {
        opened = menu.Name() == "Mnu_Aide" && menu.Visible() && menu.entries().at(0)->Visible();
    };
    Desk desk(callbacks);
    const auto form = desk.open("00012");
    std::set<std::pair<std::string, int>> opening;
    form->form().visit([&](widgets::Control& control) {
        for (const int button : {1, 2, 4}) {
            opened = false;
            if (control.MouseDown)
                control.MouseDown({button, 0, 0, 0});
            if (opened)
                opening.emplace(control.Name(), button);
        }
    });
    const std::set<std::pair<std::string, int>> surfaces{
        {"Ctr_Vorandine", 2}, {"Ong_Vorandine", 2}, {"Cdr_Etudes", 2}, {"Cdr_Experience", 2}};
    EXPECT_EQ(opening, surfaces);
}

// Remembers what it was asked, and by whom.
class Asked : public ports::HelpObject {
  public:
    std::shared_ptr<ports::DBAClient> client;
    std::shared_ptr<ports::DBADatabase> database;
    std::string log;

    void TheClient(const std::shared_ptr<ports::DBAClient>& now) override { client = now; }
    void TheDatabase(const std::shared_ptr<ports::DBADatabase>& now) override { database = now; }
    void Afficher_Aide(const std::string& page, const std::string& kind, const std::string& title,
                       const std::string& text) override {
        log += page + "|" + kind + "|" + title + "|" + text + ";";
    }
};

TEST(ControlHelp, EachControlHandsInItsOwnClientAndDatabaseBeforeItAsks) {
    Desk desk;
    Asked help;
    widgets::Menu* open = nullptr;
    headless::HeadlessWorld world({.messageBox = {},
                                   .runModal = {},
                                   .popupMenu = [&](widgets::Menu& menu) { open = &menu; },
                                   .showHelp = {},
                                   .today = {}});
    components::DateConverter dates([&] { return world.today(); });
    struct Place {
        std::shared_ptr<ports::DBAClient> client = std::make_shared<ports::DBAClient>();
        std::shared_ptr<store::Store> database;
        std::unique_ptr<host::CaregiverForm> form;
    };
    const auto sitDown = [&] {
        Place place;
        place.database = std::make_shared<store::Store>(desk.engine);
        place.form = std::make_unique<host::CaregiverForm>(
            host::HostObjects{world, dates, help, place.client, place.database,
                              std::make_shared<components::Rights>(
                                  [](const std::string&) { return components::ModuleRights{}; })},
            "00012", "DURAND Marie", [](const Error& error) { FAIL() << error.what(); });
        return place;
    };
    const Place first = sitDown();
    const Place second = sitDown();
    for (const Place* const place : {&first, &second, &first}) {
        help.log.clear();
        (void)widgets::rightClick(at<widgets::TabContainer>(*place->form, "Ong_Vorandine"));
        (void)widgets::pick(place->form->form(), *open->entries().at(0));
        EXPECT_EQ(help.client, place->client);
        EXPECT_EQ(help.database, place->database);
        EXPECT_EQ(help.log, "FormationVorandine.htm|S|Formations et expériences|;");
    }
}

} // namespace
} // namespace vorandine::control_test
