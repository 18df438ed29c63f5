// What can be looked at, for `print` and for `expect`: properties, the focus, stored records, rows
// of requests, the journal. Looking changes nothing, save that the journal begins anew.
#pragma once

#include "apps/scenario/Stage.h"
#include "widgets/named/FormStack.h"

#include <nlohmann/json_fwd.hpp>

#include <string>

namespace vorandine::scenario {

class Looking {
  public:
    // All must outlive this. `detail` is the second text of the last message box.
    Looking(const widgets::FormStack& forms, Stage& stage, const std::string& detail)
        : forms_(forms), stage_(stage), detail_(detail) {}

    // Whether `what` can only be the name of a control, of which several properties are meant.
    [[nodiscard]] static bool namesControl(const std::string& what);
    // `what` is "Focus", "Form", "Detail" or "CONTROL.PROPERTY". Throws LineError or
    // std::invalid_argument for a control or property that there is not.
    [[nodiscard]] nlohmann::json look(const std::string& what) const;
    // One array of values for each attribute of a record; null if there is no such record. Throws
    // Error for a file that there is not, and where the store cannot read.
    [[nodiscard]] nlohmann::json show(const std::string& file, const std::string& key) const;
    // One array for each row. Throws Error where the store refuses the request.
    [[nodiscard]] nlohmann::json rows(const std::string& file, const std::string& attributes,
                                      const std::string& query) const;
    [[nodiscard]] nlohmann::json journal() const;

  private:
    const widgets::FormStack& forms_;
    Stage& stage_;
    const std::string& detail_;
};

} // namespace vorandine::scenario
