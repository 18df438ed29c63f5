// A course of calls with a stack of its own, in the one thread: it can stop in the middle of them,
// be left while another goes on, and be taken up again, in whatever order.
#pragma once

#include <functional>
#include <memory>

namespace vorandine::scenario {

class Fiber {
  public:
    // `work` begins at the first resume().
    explicit Fiber(std::function<void()> work);
    Fiber(const Fiber&) = delete;
    Fiber& operator=(const Fiber&) = delete;
    // What stands on the stack of one that has begun and not ended is not destroyed.
    ~Fiber();

    // Goes on with the work until it pauses or ends; throws what the work throws, which ends it.
    // Not within a fiber, nor once it has ended.
    void resume();
    // Comes back from resume(). Only within the work, and not while it handles an exception: those
    // that are being handled are the thread's, not the fiber's.
    void pause();
    [[nodiscard]] bool ended() const noexcept;

  private:
    struct Courses;
    std::unique_ptr<Courses> courses_;
};

} // namespace vorandine::scenario
