// A list that is worked by arrows, by the first letters of a name, or by double click.
#include "apps/desktop/UserDialog.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace vorandine::desktop {

std::optional<host::User> askUser(const std::vector<host::User>& users, const QString& last,
                                  const QString& url) {
    QDialog dialog;
    dialog.setObjectName("utilisateur");
    dialog.setWindowTitle("Qui êtes-vous ?");

    auto* const list = new QListWidget;
    list->setAccessibleName("Utilisateur");
    int current = 0;
    for (const host::User& user : users) {
        const QString login = QString::fromStdString(user.login);
        const QString name = QString::fromStdString(user.name);
        if (login == last)
            current = list->count();
        list->addItem(name == login ? login : name + " (" + login + ")");
    }
    list->setCurrentRow(current);

    auto* const label = new QLabel("&Utilisateur :");
    label->setBuddy(list);
    auto* const store = new QLabel("Base : " + url);
    store->setTextFormat(Qt::PlainText);
    store->setWordWrap(true);
    auto* const buttons = new QDialogButtonBox;
    buttons->addButton("&Continuer", QDialogButtonBox::AcceptRole)->setDefault(true);
    buttons->addButton("&Quitter", QDialogButtonBox::RejectRole);

    auto* const layout = new QVBoxLayout(&dialog);
    layout->addWidget(label);
    layout->addWidget(list);
    layout->addWidget(store);
    layout->addWidget(buttons);
    dialog.resize(dialog.sizeHint().expandedTo({420, 320}));

    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    QObject::connect(list, &QListWidget::itemDoubleClicked, &dialog, &QDialog::accept);
    list->setFocus();

    if (dialog.exec() != QDialog::Accepted || list->currentRow() < 0)
        return std::nullopt;
    return users[static_cast<std::size_t>(list->currentRow())];
}

} // namespace vorandine::desktop
