// The objects that a control and its forms share: files, tables, records in hand. Each control has
// its own set, so that two files open side by side do not disturb each other.
#pragma once

#include "ports/Database.h"

#include <memory>
#include <string>

namespace vorandine::ports {

struct Variables {
    std::shared_ptr<DBAClient> TheClient;
    std::shared_ptr<DBADatabase> TheDatabase;

    std::shared_ptr<DBAFile> F_ACTIVITES;
    std::shared_ptr<DBAFile> F_FORMVORANDINE;
    std::shared_ptr<DBAFile> F_TABLES;
    std::shared_ptr<DBAFile> F_DIFAIDANT;
    std::shared_ptr<DBAFile> F_CONTRAT;
    std::shared_ptr<DBAFile> F_CIVILAIDE;
    std::shared_ptr<DBAFile> F_ASSOCIATION;
    std::shared_ptr<DBAFile> F_DETAILCALCUL;

    records::DBARecord F_DIPLOMES; // tables: codes and labels
    records::DBARecord F_FORMPRO;
    records::DBARecord F_QUALIF; // the qualifications themselves in place of codes

    records::DBARecord Rec_Dossier; // the caregiver's record, the only one written back
    records::DBARecord Rec_Copie;   // what it was when it was opened: a difference means a change
    records::DBARecord Rec_ACTIVITES;
    records::DBARecord Rec_DIFAIDANT;
    records::DBARecord Rec_CONTRAT;
    records::DBARecord Rec_CIVILAIDE;
    records::DBARecord Rec_ASSOCIATION;

    // Left for who looks at them; nothing is handed over by them.
    std::string W_DifRetenu;   // "OUI" or "NON": what the D.I.F. form last answered
    std::string Dif_Attribut6; // attribute 6 of the D.I.F. record last read
};

// Opens the eight files, then reads the tables DIPLOMES, FORMPRO and QUALIF. `TheDatabase` must be
// set. What the database throws goes through; what was opened by then stays for Fermer_Fichiers.
void Ouvrir_Fichiers(Variables& variables);

// Lets go of records, then files, then the database. Harmless on what was never opened.
void Fermer_Fichiers(Variables& variables) noexcept;

} // namespace vorandine::ports
