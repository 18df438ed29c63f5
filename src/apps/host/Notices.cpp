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

Notice news(const widgets::Told& told) {
    return {.name = "news",
            .kind = NoticeKind::Told,
            .head = told.text + (told.when.empty() ? "." : " " + told.when + "."),
            .text =
                "Ce que vous voyez ici ne change pas : vos saisies et les siennes seront réunies "
                "quand vous enregistrerez.",
            .button = "&Voir ce qui a changé"};
}

Notice employersChanged() {
    return {.name = "employers",
            .kind = NoticeKind::Told,
            .head = "Les heures D.I.F. de la liste ne sont plus les dernières.",
            .text = {},
            .button = "&Relire les employeurs"};
}

} // namespace vorandine::host
