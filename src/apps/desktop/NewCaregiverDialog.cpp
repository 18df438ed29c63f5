// The dialog keeps what was typed until the store has taken it.
#include "apps/desktop/NewCaregiverDialog.h"

#include "apps/desktop/Attempt.h"
#include "text/Error.h"

#include <QAccessible>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace vorandine::desktop {

NewCaregiverDialog::NewCaregiverDialog(host::Caregivers& caregivers, const QString& typed,
                                       QWidget* parent)
    : QDialog(parent), caregivers_(caregivers), code_(new QLineEdit), name_(new QLineEdit),
      refusal_(new QLabel) {
    setObjectName("nouvelAidant");
    setWindowTitle("Nouvel aidant");
    code_->setObjectName("code");
    name_->setObjectName("nom");
    refusal_->setObjectName("refus");
    name_->setPlaceholderText("NOM Prénom");
    const bool isCode = std::any_of(typed.begin(), typed.end(),
                                    [](QChar character) { return character.isDigit(); });
    (isCode ? code_ : name_)->setText(typed);

    QFont bold = refusal_->font();
    bold.setBold(true);
    refusal_->setFont(bold);
    refusal_->setTextFormat(Qt::PlainText);
    refusal_->setWordWrap(true);
    refusal_->hide();

    auto* const fields = new QFormLayout;
    fields->addRow("&Code :", code_);
    fields->addRow("&Nom et prénom :", name_);
    auto* const buttons = new QDialogButtonBox;
    buttons->addButton("&Ajouter", QDialogButtonBox::AcceptRole)->setDefault(true);
    buttons->addButton("Ann&uler", QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &NewCaregiverDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &NewCaregiverDialog::reject);

    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(fields);
    layout->addWidget(refusal_);
    layout->addStretch();
    layout->addWidget(buttons);
    resize(sizeHint().expandedTo({460, 0}));
}

void NewCaregiverDialog::accept() {
    const bool stored = attempt(this, "L'aidant n'a pas pu être ajouté.", [this] {
        try {
            added_ = caregivers_.add(code_->text().toStdString(), name_->text().toStdString());
        } catch (const Error& error) {
            if (error.number() == errors::CodeRefused)
                refuse(*code_, QString::fromUtf8(error.what()));
            else if (error.number() == errors::TextRefused)
                refuse(*name_, QString::fromUtf8(error.what()));
            else
                throw;
        }
    });
    if (stored && added_)
        QDialog::accept();
}

void NewCaregiverDialog::refuse(QLineEdit& field, const QString& why) {
    refusal_->setText(why);
    refusal_->show();
    // A wrapped label is taller than the dialog was made for.
    layout()->activate();
    if (const int height = layout()->totalHeightForWidth(width()); height > this->height())
        resize(width(), height);
    QAccessibleEvent alert(refusal_, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
    field.setFocus();
    field.selectAll();
}

} // namespace vorandine::desktop
