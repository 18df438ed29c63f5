// Things of a caregiver's file in words, for whoever is asked or told what two seats made of them.
#pragma once

#include "ports/DateObject.h"
#include "ports/Variables.h"
#include "records/Merge.h"
#include "records/TrainingLabels.h"

#include <string>
#include <vector>

namespace vorandine::control {

// The tables and files of `variables` give codes their labels. All must outlive it.
class PointTexts {
  public:
    PointTexts(const ports::Variables& variables, const ports::DateObject& Conv_Date)
        : v_(variables), labels_(variables.F_FORMPRO), Conv_Date_(Conv_Date) {}

    // "année du diplôme : vous « 2004 », SYLVIE « 2005 »".
    [[nodiscard]] std::string conflict(const records::Point& point, const std::string& who) const;
    // What the other seat did: "année du diplôme : « 2005 »", "formation ajoutée : …".
    [[nodiscard]] std::string change(const records::Point& point) const;

  private:
    const ports::Variables& v_;
    records::TrainingLabels labels_;
    const ports::DateObject& Conv_Date_;

    [[nodiscard]] std::string valueText(int attribute,
                                        const std::vector<std::string>& values) const;
    [[nodiscard]] std::string studyText(const std::vector<std::string>& study) const;
    [[nodiscard]] std::string activityText(const std::string& code) const;
    [[nodiscard]] std::string trainingText(const std::vector<std::string>& line) const;
};

} // namespace vorandine::control
