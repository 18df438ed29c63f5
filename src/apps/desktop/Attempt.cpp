// The dialog about what the host itself could not do. Errors of a file at work have another one,
// which tells what became of what was typed.
#include "apps/desktop/Attempt.h"

#include <QMessageBox>
#include <QPushButton>

#include <exception>

namespace vorandine::desktop {
namespace {

void tell(QWidget* parent, const QString& failed, const QString& why) {
    QMessageBox box(QMessageBox::Critical, "Erreur", failed, QMessageBox::NoButton, parent);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(why);
    box.setEscapeButton(box.addButton("&Fermer", QMessageBox::AcceptRole));
    box.exec();
}

} // namespace

bool attempt(QWidget* parent, const QString& failed, const std::function<void()>& work) {
    try {
        work();
        return true;
    } catch (const std::exception& error) {
        tell(parent, failed, QString::fromUtf8(error.what()));
        return false;
    }
}

} // namespace vorandine::desktop
