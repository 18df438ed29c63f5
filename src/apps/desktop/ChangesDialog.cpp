// A text that can be gone through and copied by keyboard.
#include "apps/desktop/ChangesDialog.h"

#include "frontends/qt/FormWindow.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace vorandine::desktop {

void showChanges(QWidget& parent, const std::vector<host::NewsInWords>& changes) {
    QDialog dialog(&parent);
    dialog.setObjectName("changements");
    dialog.setWindowTitle("Ce qui a changé");
    if (const auto* const window = qobject_cast<qt::FormWindow*>(&parent))
        dialog.setFont(window->enlarged(dialog.font()));

    QString page;
    for (const host::NewsInWords& change : changes) {
        page += "<p><b>" + QString::fromStdString(change.head).toHtmlEscaped() + "</b></p><ul>";
        for (const std::string& line : change.lines)
            page += "<li>" + QString::fromStdString(line).toHtmlEscaped() + "</li>";
        page += "</ul>";
    }
    auto* const text = new QTextBrowser;
    text->setAccessibleName(dialog.windowTitle());
    text->setTextInteractionFlags(Qt::TextBrowserInteraction | Qt::TextSelectableByKeyboard);
    text->setHtml(page);
    auto* const buttons = new QDialogButtonBox;
    buttons->addButton("&Fermer", QDialogButtonBox::RejectRole)->setDefault(true);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);

    auto* const layout = new QVBoxLayout(&dialog);
    layout->addWidget(text);
    layout->addWidget(buttons);
    const int letter = dialog.fontMetrics().height();
    dialog.resize(40 * letter, 20 * letter);
    dialog.exec();
}

} // namespace vorandine::desktop
