// vorandine: the caregivers' training files on the desk of the office staff.
#include "apps/desktop/Attempt.h"
#include "apps/desktop/CaregiverWindow.h"
#include "apps/desktop/MainWindow.h"
#include "apps/desktop/Options.h"
#include "apps/desktop/UserDialog.h"
#include "store/WriteSignals.h"
#include "text/Characters.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QMessageBox>
#include <QTranslator>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iostream>

namespace vorandine::desktop {
namespace {

constexpr int Done = 0;
constexpr int CannotOpen = 1;
constexpr int CannotRun = 2;
// Where a screen is named; a platform without one can be chosen too.
constexpr const char* Displays[] = {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};

bool hasScreen() {
    return std::any_of(std::begin(Displays), std::end(Displays), [](const char* name) {
        const char* const value = std::getenv(name);
        return value != nullptr && *value != '\0';
    });
}

// The URL to open: the one given, else that of the demonstration data. Throws Error(StoreMissing).
std::string urlOf(const Options& options) {
    if (!options.store.empty())
        return options.store;
    const std::string file = demonstrationFile();
    if (!std::filesystem::exists(file))
        throw Error(errors::StoreMissing,
                    "La base de démonstration n'existe pas encore (" + file +
                        "). Lancez une fois ./run, qui la prépare, ou donnez l'adresse d'une "
                        "autre base : vorandine sqlite:CHEMIN.");
    return "sqlite:" + file;
}

// The user of the command line, or the one picked in a dialog; none if it was left. Throws Error
// where there is nobody, or not that one.
std::optional<host::User> userOf(const Options& options, store::Store& store,
                                 const std::string& url, const Settings& settings) {
    const std::vector<host::User> users = host::users(store);
    if (users.empty())
        throw Error(errors::RecordMissing,
                    "La base ne connaît aucun utilisateur : son fichier UTILISATEURS est vide. "
                    "Demandez à qui l'administre d'y importer les utilisateurs et leurs droits.");
    if (!options.user)
        return askUser(users, settings.lastUser(), QString::fromStdString(url));
    const auto found = std::find_if(users.begin(), users.end(), [&](const host::User& user) {
        return user.login == *options.user;
    });
    if (found == users.end())
        throw Error(errors::RecordMissing,
                    "L'utilisateur « " + *options.user +
                        " » est inconnu de cette base. Lancez vorandine sans --user pour choisir "
                        "dans la liste.");
    return *found;
}

int openOne(Session& session, Settings& settings, const std::string& code) {
    const auto caregiver = session.caregivers().find(code);
    if (!caregiver)
        throw Error(errors::RecordMissing, "Aucun aidant n'a le code « " + code +
                                               " ». Lancez vorandine sans --open pour le chercher "
                                               "dans la liste.");
    CaregiverWindow window(session, settings, *caregiver);
    session.world().tellBy([&](auto& /*form*/, const widgets::Told& told) { window.tell(told); });
    QObject::connect(&window, &CaregiverWindow::ended, qApp, [] { QCoreApplication::exit(Done); });
    const int status = QCoreApplication::exec();
    // There is no list that could tell it.
    if (!window.told().empty()) {
        QMessageBox box(QMessageBox::Information, shownName(*caregiver),
                        QString::fromUtf8(window.told()), QMessageBox::Ok);
        box.setTextFormat(Qt::PlainText);
        box.exec();
    }
    return status;
}

int openList(Session& session, Settings& settings) {
    MainWindow list(session, settings);
    QObject::connect(&list, &MainWindow::closed, qApp, [] { QCoreApplication::exit(Done); });
    list.show();
    return QCoreApplication::exec();
}

int work(const Options& options) {
    Settings settings;
    const std::string url = urlOf(options);
    const auto store =
        std::make_shared<store::Store>(store::openEngine(url, store::OpenMode::Existing));
    const std::optional<host::User> user = userOf(options, *store, url, settings);
    if (!user)
        return Done;
    settings.setLastUser(QString::fromStdString(user->login));
    Session session(store, url, *user);
    return options.open ? openOne(session, settings, *options.open) : openList(session, settings);
}

int run(const Options& options, int argc, char** argv) {
    if (options.help) {
        std::cout << Help;
        return Done;
    }
    if (options.version) {
        std::cout << "vorandine " << VORANDINE_VERSION << '\n';
        return Done;
    }
    if (!hasScreen()) {
        std::cerr << "vorandine: il n'y a pas d'écran ici (ni DISPLAY ni WAYLAND_DISPLAY)\n";
        return CannotRun;
    }
    QApplication application(argc, argv);
    QApplication::setOrganizationName("vorandine");
    QApplication::setApplicationName("vorandine");
    QApplication::setApplicationDisplayName("Vorandine");
    // A program of dialogs and windows that come and go ends when its own last one says so.
    QApplication::setQuitOnLastWindowClosed(false);
    QLocale::setDefault(QLocale(QLocale::French, QLocale::France));
    // Qt's own texts, as in the menus of text fields; without them these stay in English.
    QTranslator translator;
    if (translator.load("qtbase_fr", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&translator);

    int status = CannotOpen;
    attempt(nullptr, "Vorandine ne peut pas continuer.", [&] { status = work(options); });
    return status;
}

} // namespace
} // namespace vorandine::desktop

int main(int argc, char** argv) {
    using namespace vorandine::desktop;
    using vorandine::text::Printable;
    vorandine::store::ignoreWriteSignals();
    try {
        return run(parse({argv + 1, argv + argc}), argc, argv);
    } catch (const UsageError& error) {
        std::cerr << "vorandine: " << Printable(error.what()) << " ; voir vorandine --help\n";
    } catch (const std::exception& error) {
        std::cerr << "vorandine: " << Printable(error.what()) << '\n';
    }
    return CannotRun;
}
