// A task during which the user must not touch the control, or the form: hourglass, disabled. Both
// are put back however the task ends.
#pragma once

#include "widgets/Form.h"
#include "widgets/World.h"

namespace vorandine::rules {

template <class Surface> // widgets::UserControl or widgets::Form
class LongTask {
  public:
    LongTask(Surface& control, widgets::World& world)
        : control_(control), world_(world), pointer_(control.MousePointer()),
          enabled_(control.Enabled()) {
        control_.MousePointer(widgets::Hourglass);
        control_.Enabled(false);
    }
    LongTask(const LongTask&) = delete;
    LongTask& operator=(const LongTask&) = delete;
    ~LongTask() {
        control_.MousePointer(pointer_);
        control_.Enabled(enabled_);
    }

    // The end of a task that went well: waiting events find the control still disabled.
    void letEventsThrough() { world_.letEventsThrough(); }

  private:
    Surface& control_;
    widgets::World& world_;
    std::int16_t pointer_;
    bool enabled_;
};

} // namespace vorandine::rules
