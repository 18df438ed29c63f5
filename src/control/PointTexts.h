// Things of a caregiver's file in words, for whoever is asked or told what two seats made of them.
#pragma once

#include "ports/DateObject.h"
#include "records/DBARecord.h"
#include "records/Merge.h"

#include <string>
#include <vector>

namespace vorandine::control {

// `F_FORMPRO` gives trainings their labels. Both must outlive it.
class PointTexts {
  public:
    PointTexts(const records::DBARecord& F_FORMPRO, const ports::DateObject& Conv_Date)
        : F_FORMPRO_(F_FORMPRO), Conv_Date_(Conv_Date) {}

    // "année du diplôme : vous « 2004 », SYLVIE « 2005 »".
    [[nodiscard]] std::string conflict(const records::Point& point, const std::string& who) const;
    // What the other seat did: "année du diplôme : « 2005 »", "formation ajoutée : …".
    [[nodiscard]] std::string change(const records::Point& point) const;

    // The texts with " ; " between, or each on a line of its own; no more than ten, then "et N
    // autres".
    [[nodiscard]] static std::string listed(const std::vector<std::string>& texts,
                                            const std::string& between);

  private:
    const records::DBARecord& F_FORMPRO_;
    const ports::DateObject& Conv_Date_;

    [[nodiscard]] std::string valueText(int attribute,
                                        const std::vector<std::string>& values) const;
    [[nodiscard]] std::string trainingText(const std::vector<std::string>& line) const;
};

} // namespace vorandine::control
