// How a host embeds the control: a store, rights, dates and a form are all it needs. Here nobody
// sits at the screen, so the program does what a user would and prints what he would see.
#include "components/Consultation.h"
#include "components/DateConverter.h"
#include "components/Help.h"
#include "components/Parameters.h"
#include "components/Rights.h"
#include "control/Ctr_Vorandine.h"
#include "frontends/headless/HeadlessWorld.h"
#include "records/StoredFiles.h"
#include "store/Store.h"
#include "store/WriteSignals.h"
#include "text/Error.h"
#include "widgets/Gestures.h"
#include "widgets/Kinds.h"

#include <exception>
#include <iostream>
#include <memory>

using namespace vorandine;

namespace {

void putActivity(ports::DBADatabase& database, const std::string& code, const std::string& label) {
    namespace activity = records::activity;
    records::DBARecord record = database.OpenFile(activity::File)->NewRecord(code);
    record(activity::Label) = label;
    record.DBWrite();
}

void run() {
    const auto database =
        std::make_shared<store::Store>(store::openEngine("memory:", store::OpenMode::Create));
    putActivity(*database, "A1", "Ménage");
    putActivity(*database, "A2", "Aide à la toilette");
    namespace table = records::table;
    for (const char* const key : {table::Diplomas, table::Trainings, table::Qualifications})
        database->OpenFile(table::File)->NewRecord(key).DBWrite();

    // World, dates and help must outlive the control, which takes itself off the form when it goes.
    headless::HeadlessWorld world;
    components::DateConverter dates([&world] { return world.today(); });
    components::Help help(world);
    widgets::Form form;
    control::Ctr_Vorandine control(world, dates, help, components::makeParameters);
    form.add(control);
    // The control's size in twips; the window's own close button asks as Cmd_Retour does.
    form.place({0, 0, 9765, 6630});
    control.place({0, 0, 9765, 6630});
    form.CloseButton = [&form] {
        auto& back = *widgets::as<widgets::CommandButton>(form.find("Cmd_Retour"));
        return widgets::click(back) != widgets::Outcome::Refused;
    };
    form.Failed = [](const Error& error) { std::cerr << error.what() << '\n'; };

    control.TheClient(std::make_shared<ports::DBAClient>());
    const auto rights = std::make_shared<components::Rights>(
        [](const std::string& /*key*/) { return components::ModuleRights{}; });
    control.TheDatabase(components::databaseFor(database, *rights)); // who may not write, cannot
    control.DroitsUtilisateur(rights);
    control.W_Code = "00012";
    control.W_NomPrenom = "DURAND Marie";
    control.Init();
    form.focusFirst();

    const auto& list = *widgets::as<widgets::ListBox>(form.find("Lst_SectSelect"));
    for (int line = 0; line < list.ListCount(); ++line)
        std::cout << list.List(line) << '\n';

    // Leaving unloads the form; a host then reads W_Sortir.
    widgets::click(*widgets::as<widgets::CommandButton>(form.find("Cmd_Retour")));
    if (form.unloaded())
        std::cout << "W_Sortir = " << control.W_Sortir << '\n';
}

} // namespace

int main() {
    store::ignoreWriteSignals();
    try {
        run();
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
