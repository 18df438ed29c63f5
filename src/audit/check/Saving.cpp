// The losses of saving beside the findings of the layout.
#include "audit/check/Checks.h"

#include <algorithm>

namespace vorandine::audit {

void SavingCheck::look(const Record& record) {
    const std::vector<Loss> losses = losses_(record.text());
    const auto problem = [&](const Loss& loss) {
        return (loss.becomes.empty() ? "is erased by the "
                                     : "becomes '" + loss.becomes + "' at the ") +
               by_;
    };
    std::vector<bool> added(losses.size());
    for (Finding& finding : found_) {
        const auto loss = std::find_if(losses.begin(), losses.end(), [&](const Loss& one) {
            return one.attribute == finding.attribute && one.position == finding.position;
        });
        if (loss != losses.end()) {
            finding.problem += ", and " + problem(*loss);
            added[static_cast<std::size_t>(loss - losses.begin())] = true;
        }
        tell_(finding);
    }
    found_.clear();
    for (std::size_t i = 0; i < losses.size(); ++i)
        if (!added[i])
            tell_({file_, std::string(record.key()), losses[i].attribute, losses[i].position,
                   losses[i].value, problem(losses[i]),
                   "take it down elsewhere if it is worth something: the history alone keeps it"});
}

} // namespace vorandine::audit
