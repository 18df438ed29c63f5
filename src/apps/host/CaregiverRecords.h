// All that is stored of one caregiver's file, read apart from the control, for what a host tells of
// it when it is opened.
#pragma once

#include "ports/Variables.h"

#include <map>
#include <memory>
#include <string>

namespace vorandine::host {

struct CaregiverRecords {
    std::string code;
    ports::Variables tables;
    records::DBARecord file;                           // empty where there is none
    std::map<std::string, records::DBARecord> ledgers; // by key, those that could be read
    bool all = true;                                   // they could all be
};

// Throws what reading the tables, the training file or the list of ledgers throws.
[[nodiscard]] CaregiverRecords readCaregiver(const std::shared_ptr<ports::DBADatabase>& database,
                                             const std::string& code);

} // namespace vorandine::host
