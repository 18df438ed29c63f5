// The user's rights, as the control asks for them: one object for the user, from it one module for
// each part of the application.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace vorandine::ports {

class ListeDroits {
  public:
    ListeDroits() = default;
    ListeDroits(const ListeDroits&) = delete;
    ListeDroits& operator=(const ListeDroits&) = delete;
    virtual ~ListeDroits() = default;

    // Fills W_Liste.
    virtual void InitialiserListe() = 0;
    // `W_Liste.Count`: how many entries the list of restrictions has; 0 means none.
    [[nodiscard]] virtual int Count() const = 0;
};

// The level of DroitsModule::Niveau that lets the user write; no other does.
constexpr std::int32_t WritingLevel = 2;

class DroitsModule {
  public:
    DroitsModule() = default;
    DroitsModule(const DroitsModule&) = delete;
    DroitsModule& operator=(const DroitsModule&) = delete;
    virtual ~DroitsModule() = default;

    // WritingLevel, or another.
    [[nodiscard]] virtual std::int32_t Niveau() = 0;
    // Whether this user may choose the activity `code`; no value counts as False. `doubleClick`
    // tells how it was chosen.
    [[nodiscard]] virtual std::optional<bool> DroitSur(const std::string& code,
                                                       bool doubleClick) = 0;
    [[nodiscard]] virtual bool AccesTotal() = 0;
    // Each call may give the same object.
    [[nodiscard]] virtual std::shared_ptr<class ListeDroits> ListeDroits() = 0;
};

class DroitsUtilisateur {
  public:
    DroitsUtilisateur() = default;
    DroitsUtilisateur(const DroitsUtilisateur&) = delete;
    DroitsUtilisateur& operator=(const DroitsUtilisateur&) = delete;
    virtual ~DroitsUtilisateur() = default;

    // The rights for the part of the application named by `key`: "VORANDINEDROIT", "FORMDIF",
    // "CALCULREMU", "PARAMETRES". Never null.
    [[nodiscard]] virtual std::shared_ptr<DroitsModule> Droits(const std::string& key) = 0;
};

} // namespace vorandine::ports
