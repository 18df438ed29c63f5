// What to say for which group of error numbers.
#include "frontends/qt/ErrorDialog.h"

#include "frontends/qt/FormWindow.h"

#include <QMessageBox>
#include <QPushButton>

namespace vorandine::qt {
namespace {

struct Explanation {
    const char* failed;
    const char* kept;
    const char* advice;
};

constexpr const char* OnScreen = "Ce que vous avez saisi est resté à l'écran.";
constexpr const char* NothingWritten =
    "Rien n'a été enregistré ; ce que vous avez saisi est resté à l'écran.";

Explanation explanation(std::uint32_t number) {
    switch (number) {
    case errors::RecordMissing:
        return {"Une fiche demandée n'existe pas dans la base.", OnScreen,
                "Vérifiez que la fiche n'a pas été supprimée, puis recommencez."};
    case errors::DiskFull:
        return {"Le disque est plein : l'enregistrement a échoué.", NothingWritten,
                "Libérez de la place sur le disque, puis enregistrez de nouveau."};
    case errors::Locked:
        return {"La base est occupée par un autre poste ou un autre programme.", NothingWritten,
                "Attendez quelques instants, puis recommencez."};
    case errors::Unreachable:
        return {
            "La base n'est pas joignable : le serveur ou le réseau ne répond pas.", OnScreen,
            "Attendez quelques instants, puis recommencez ; si l'erreur revient, prévenez votre "
            "administrateur."};
    case errors::MayNotWrite:
        return {"Vous consultez ce dossier : vos droits ne permettent pas d'y écrire.",
                NothingWritten,
                "Pour le fermer, pressez Retour et répondez Non ; pour le changer, adressez-vous à "
                "quelqu'un qui a le droit d'écrire."};
    case errors::ReadOnly:
        return {"La base ne peut être que lue : l'enregistrement a échoué.", NothingWritten,
                "Demandez à votre administrateur le droit d'écrire dans la base."};
    case errors::Damaged:
    case errors::NotADatabase:
    case errors::ReadHadFailed:
        return {
            "La base n'a pas pu être lue correctement.",
            "Rien n'a été remplacé dans la base ; ce que vous avez saisi est resté à l'écran.",
            "N'enregistrez plus et prévenez votre administrateur, qui dispose des sauvegardes."};
    case errors::TextRefused:
    case errors::NotANumber:
    case errors::Overflow:
    case errors::NotAnEntry:
    case errors::CodeRefused:
    case errors::KeyRefused:
    case errors::RequestRefused:
        return {"Une valeur saisie ou lue n'est pas acceptée.", OnScreen,
                "Corrigez la valeur dont parlent les détails, puis recommencez."};
    case errors::TooManyLines:
    case errors::RecordTooLong:
        return {"Le dossier est trop long.", NothingWritten,
                "Retirez des lignes, puis recommencez."};
    case errors::HelpMissing:
        return {"La page d'aide demandée n'existe pas.", OnScreen,
                "Continuez sans elle, et prévenez votre administrateur."};
    default:
        break;
    }
    constexpr std::uint32_t Group = 0xFFFFFF00;
    constexpr std::uint32_t StoreGroup = 0x80040200;
    if ((number & Group) == StoreGroup)
        return {"L'échange avec la base de données a échoué.", NothingWritten,
                "Recommencez ; si l'erreur revient, prévenez votre administrateur."};
    return {"Une erreur inattendue s'est produite.", OnScreen,
            "Recommencez ; si l'erreur revient, notez les détails et prévenez votre "
            "administrateur."};
}

} // namespace

void showError(QWidget* parent, const Error& error) {
    const Explanation told = explanation(error.number());
    QMessageBox box(parent);
    if (const auto* const window = qobject_cast<FormWindow*>(parent))
        box.setFont(window->enlarged(box.font()));
    box.setWindowTitle(QStringLiteral("Erreur"));
    box.setIcon(QMessageBox::Critical);
    box.setTextFormat(Qt::PlainText);
    box.setText(QString::fromUtf8(told.failed));
    box.setInformativeText(QStringLiteral("%1\n\n%2")
                               .arg(QString::fromUtf8(told.kept), QString::fromUtf8(told.advice)));
    QPushButton* const close = box.addButton(QStringLiteral("&Fermer"), QMessageBox::AcceptRole);
    QPushButton* const details = box.addButton(QStringLiteral("&Détails"), QMessageBox::ActionRole);
    box.setDefaultButton(close);
    box.setEscapeButton(close);
    // The native button for details speaks the language of the platform, not ours.
    details->disconnect();
    QObject::connect(details, &QPushButton::clicked, &box, [&] {
        details->setEnabled(false);
        box.setInformativeText(box.informativeText() +
                               QStringLiteral("\n\n%1\n(erreur 0x%2)")
                                   .arg(QString::fromUtf8(error.what()))
                                   .arg(QString::number(error.number(), 16).toUpper()));
    });
    box.exec();
}

} // namespace vorandine::qt
