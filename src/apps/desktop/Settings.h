// What vorandine remembers between runs, in the user's configuration folder.
#pragma once

#include <QByteArray>
#include <QSettings>
#include <QSize>
#include <QString>

namespace vorandine::desktop {

// What was never remembered, or can't be read, comes as an empty or invalid value.
class Settings {
  public:
    Settings();

    [[nodiscard]] QString lastUser() const;
    void setLastUser(const QString& login);

    [[nodiscard]] QByteArray listGeometry() const;
    // How the columns of the list are sorted.
    [[nodiscard]] QByteArray listColumns() const;
    void setList(const QByteArray& geometry, const QByteArray& columns);

    // Of caregivers' windows; their zoom follows from it.
    [[nodiscard]] QSize caregiverSize() const;
    [[nodiscard]] bool caregiverMaximized() const;
    void setCaregiver(const QSize& size, bool maximized);

  private:
    QSettings stored_;
};

} // namespace vorandine::desktop
