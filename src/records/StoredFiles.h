// The stored files and their attributes by name: the one place with their names and numbers.
// records/Layout says of each attribute what it holds, docs/store.md tells the same to people.
#pragma once

#include <array>

// One namespace a file, so that what is read shows at the place of reading:
// `record(records::contract::LastDay)`. Where several attributes are one thing (the lists of the
// same lines, of which the first counts them), an array names them.
namespace vorandine::records {

constexpr int Key = 0; // how requests call the key of a record

namespace activity {
constexpr const char* File = "ACTIVITES";
constexpr int Label = 1;
} // namespace activity

namespace caregiver {
constexpr const char* File = "AIDANT";
constexpr int Name = 1;
} // namespace caregiver

// An employer of a code of 3 characters.
namespace association {
constexpr const char* File = "ASSOCIATION";
constexpr int Name = 1;
} // namespace association

// A private employer.
namespace household {
constexpr const char* File = "CIVILAIDE";
constexpr int Name = 2;
constexpr int FirstName = 3;
} // namespace household

namespace contract {
constexpr const char* File = "CONTRAT";
constexpr int Employer = 3;
constexpr int EmployerName = 4;
constexpr int EmployerFirstName = 5;
constexpr int FirstDay = 7;
constexpr int LastDay = 8; // "" while the contract is open
constexpr int ClosingPeriod = 63;
constexpr int LeftOut = 65; // anything here leaves the contract out
} // namespace contract

// A line of pay.
namespace pay {
constexpr const char* File = "DETAILCALCUL";
constexpr int Employer = 1;
constexpr int Agreement = 2; // the collective agreement of the contract
constexpr int CountsForDif = 3;
constexpr int Period = 4;
constexpr int Hours = 6;
constexpr int NetPay = 16;
} // namespace pay

// A caregiver's training rights with one employer; oldest line first.
namespace ledger {
constexpr const char* File = "DIFAIDANT";
constexpr int Date = 1;
constexpr int Rights = 2;   // "" on a consumption line
constexpr int Hours = 3;    // "" on a rights line
constexpr int Balance = 4;  // after this line; may be negative
constexpr int Training = 5; // code of the training, "" on a rights line
constexpr int Carried = 6;  // not this control's affair, carried along

inline constexpr std::array Line{Date, Rights, Hours, Balance, Training};
} // namespace ledger

// A user's rights in a part of the application.
namespace right {
constexpr const char* File = "DROITS";
constexpr int Level = 1;
constexpr int TotalAccess = 2;
constexpr int Activities = 3; // that the user may choose
} // namespace right

// A caregiver's training file; latest training first.
namespace training_file {
constexpr const char* File = "FORMVORANDINE";
constexpr int StudyType = 1; // "D" or "N"
constexpr int StudyCode = 2;
constexpr int DiplomaYear = 3;
constexpr int Speciality = 4;
constexpr int Date = 5;
constexpr int Training = 6; // its code
constexpr int Hours = 7;
constexpr int Remarks = 8;
constexpr int Experience = 9;
constexpr int Activities = 10;
constexpr int EntryDay = 11;
constexpr int AvailableFrom = 12;
constexpr int AvailableTo = 13;
constexpr int CountsForDif = 14; // "1" or "0"
constexpr int Qualification = 15;

inline constexpr std::array Study{StudyType, StudyCode};
inline constexpr std::array Line{Date, Training, Hours, Remarks, CountsForDif};
} // namespace training_file

// A list to choose from.
namespace table {
constexpr const char* File = "TABLES";
constexpr const char* Diplomas = "DIPLOMES"; // its records, by key
constexpr const char* Trainings = "FORMPRO";
constexpr const char* Qualifications = "QUALIF"; // which stand where the others have codes
constexpr int Codes = 2;
constexpr int Labels = 3;

inline constexpr std::array Entry{Codes, Labels};
} // namespace table

namespace user {
constexpr const char* File = "UTILISATEURS";
constexpr int Name = 1;
} // namespace user

} // namespace vorandine::records
