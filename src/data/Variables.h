// The objects that a control and its forms share: files, tables, records in hand. Each control has
// its own set, so that two files open side by side do not disturb each other.
#pragma once

#include "data/DBAFile.h"

#include <memory>
#include <string>

namespace vorandine::data {

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

    DBARecord F_DIPLOMES; // tables: attribute 2 codes, attribute 3 labels
    DBARecord F_FORMPRO;
    DBARecord F_QUALIF; // attribute 2 the qualifications themselves

    DBARecord Rec_Dossier; // the caregiver's record, the only one written back
    DBARecord Rec_Copie;   // what it was when it was opened: a difference means a change
    DBARecord Rec_ACTIVITES;
    DBARecord Rec_DIFAIDANT;
    DBARecord Rec_CONTRAT;
    DBARecord Rec_CIVILAIDE;
    DBARecord Rec_ASSOCIATION;

    std::string W_DifRetenu;   // "OUI" or "NON": what the D.I.F. form answers
    std::string Dif_Attribut6; // attribute 6 of the D.I.F. record last read
};

// Opens the eight files, then reads the tables DIPLOMES, FORMPRO and QUALIF. `TheDatabase` must be
// set. What the database throws goes through; what was opened by then stays for Fermer_Fichiers.
void Ouvrir_Fichiers(Variables& variables);

// Lets go of records, then files, then the database. Harmless on what was never opened.
void Fermer_Fichiers(Variables& variables) noexcept;

// Makes a request: empties `W_Params`, fills it and passes it to the database. `wanted` is the
// attributes wanted, as "0 3 8". What Select throws goes through.
[[nodiscard]] DBARecord select(Variables& variables, DBARecord& W_Params, const std::string& query,
                               const std::string& file, const std::string& wanted);

} // namespace vorandine::data
