// Opening and closing of the files, in the order on which hosts and their logs rely.
#include "ports/Variables.h"

#include "records/StoredFiles.h"

namespace vorandine::ports {

void Ouvrir_Fichiers(Variables& variables) {
    DBADatabase& database = *variables.TheDatabase;
    variables.F_ACTIVITES = database.OpenFile(records::activity::File);
    variables.F_FORMVORANDINE = database.OpenFile(records::training_file::File);
    variables.F_TABLES = database.OpenFile(records::table::File);
    variables.F_DIFAIDANT = database.OpenFile(records::ledger::File);
    variables.F_CONTRAT = database.OpenFile(records::contract::File);
    variables.F_CIVILAIDE = database.OpenFile(records::household::File);
    variables.F_ASSOCIATION = database.OpenFile(records::association::File);
    variables.F_DETAILCALCUL = database.OpenFile(records::pay::File);

    variables.F_DIPLOMES = variables.F_TABLES->ReadRecord(records::table::Diplomas);
    variables.F_FORMPRO = variables.F_TABLES->ReadRecord(records::table::Trainings);
    variables.F_QUALIF = variables.F_TABLES->ReadRecord(records::table::Qualifications);
}

void Fermer_Fichiers(Variables& variables) noexcept {
    for (records::DBARecord* const record :
         {&variables.Rec_ACTIVITES, &variables.F_DIPLOMES, &variables.Rec_Dossier,
          &variables.F_FORMPRO, &variables.Rec_DIFAIDANT, &variables.Rec_CONTRAT,
          &variables.Rec_CIVILAIDE, &variables.Rec_ASSOCIATION, &variables.F_QUALIF})
        *record = records::DBARecord();
    for (std::shared_ptr<DBAFile>* const file :
         {&variables.F_ACTIVITES, &variables.F_FORMVORANDINE, &variables.F_TABLES,
          &variables.F_DIFAIDANT, &variables.F_CONTRAT, &variables.F_CIVILAIDE,
          &variables.F_ASSOCIATION, &variables.F_DETAILCALCUL})
        file->reset();
    variables.TheDatabase.reset();
}

} // namespace vorandine::ports
