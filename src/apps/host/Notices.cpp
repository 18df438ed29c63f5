// The texts of the notices.
#include "apps/host/Notices.h"

namespace vorandine::host {

Notice consultation() {
    return {.name = "consultation",
            .kind = NoticeKind::Locked,
            .head = "Consultation seule.",
            .text =
                "Vous pouvez lire ce dossier ; ce que vous y changeriez ne serait pas enregistré.",
            .button = {}};
}

Notice news(const widgets::Told& told, NewsOf what, bool mayWrite) {
    const char* const after =
        what == NewsOf::HoursAlone ? "Des heures de D.I.F. : l'onglet les lit quand on y vient."
        : mayWrite
            ? "Ce que vous voyez ici ne change pas : vos saisies et les siennes seront "
              "réunies quand vous enregistrerez."
            : "Ce que vous voyez ici ne change pas : rouvrez le dossier pour le lire à jour.";
    return {.name = "news",
            .kind = NoticeKind::Told,
            .head = told.text + (told.when.empty() ? "." : " " + told.when + "."),
            .text = after,
            .button = "Voir ce qui a changé"};
}

Notice employersChanged() {
    return {.name = "employers",
            .kind = NoticeKind::Told,
            .head = "Les heures D.I.F. de la liste ne sont plus les dernières.",
            .text = {},
            .button = "Relire les employeurs"};
}

} // namespace vorandine::host
