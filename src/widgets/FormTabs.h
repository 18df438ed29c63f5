// The tabs of a form, for gestures that name a tab by its number alone.
#pragma once

#include "widgets/Form.h"

namespace vorandine::widgets {

// The first tab container on `form`, null if it has none.
[[nodiscard]] TabContainer* tabsOf(const Form& form);

} // namespace vorandine::widgets
