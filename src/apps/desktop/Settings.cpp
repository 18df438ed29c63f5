// The names under which things are remembered.
#include "apps/desktop/Settings.h"

namespace vorandine::desktop {
namespace {

constexpr const char* LastUser = "utilisateur";
constexpr const char* ListGeometry = "liste/fenetre";
constexpr const char* ListColumns = "liste/colonnes";
constexpr const char* CaregiverSize = "dossier/taille";
constexpr const char* CaregiverMaximized = "dossier/agrandi";

} // namespace

Settings::Settings()
    : stored_(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("vorandine"),
              QStringLiteral("vorandine")) {}

QString Settings::lastUser() const {
    return stored_.value(LastUser).toString();
}

void Settings::setLastUser(const QString& login) {
    stored_.setValue(LastUser, login);
}

QByteArray Settings::listGeometry() const {
    return stored_.value(ListGeometry).toByteArray();
}

QByteArray Settings::listColumns() const {
    return stored_.value(ListColumns).toByteArray();
}

void Settings::setList(const QByteArray& geometry, const QByteArray& columns) {
    stored_.setValue(ListGeometry, geometry);
    stored_.setValue(ListColumns, columns);
}

QSize Settings::caregiverSize() const {
    return stored_.value(CaregiverSize).toSize();
}

bool Settings::caregiverMaximized() const {
    return stored_.value(CaregiverMaximized).toBool();
}

void Settings::setCaregiver(const QSize& size, bool maximized) {
    stored_.setValue(CaregiverSize, size);
    stored_.setValue(CaregiverMaximized, maximized);
}

} // namespace vorandine::desktop
