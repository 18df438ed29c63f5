// Two contexts, left and taken up by turns. AddressSanitizer is told of each change, since it would
// take the other stack for memory that nobody may use.
#include "apps/scenario/Fiber.h"

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <sys/mman.h>
#include <system_error>
#include <ucontext.h>
#include <utility>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/common_interface_defs.h>
#endif

namespace vorandine::scenario {
namespace {

// As large as a main stack is: pages that are not used take no memory.
constexpr std::size_t StackBytes = std::size_t{8} << 20U;
// Below the stack, never to be touched: whoever runs out of it ends here.
constexpr std::size_t GuardBytes = std::size_t{64} << 10U;

class Stack {
  public:
    Stack()
        : memory_(mmap(nullptr, GuardBytes + StackBytes, PROT_READ | PROT_WRITE,
                       MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE | MAP_STACK, -1, 0)) {
        if (memory_ == MAP_FAILED || mprotect(memory_, GuardBytes, PROT_NONE) != 0)
            throw std::system_error(errno, std::generic_category(), "no stack for a seat");
    }
    Stack(const Stack&) = delete;
    Stack& operator=(const Stack&) = delete;
    ~Stack() { munmap(memory_, GuardBytes + StackBytes); }

    [[nodiscard]] void* bottom() const noexcept {
        return static_cast<std::byte*>(memory_) + GuardBytes;
    }

  private:
    void* memory_;
};

// One side of a change: where it stopped, its stack, and what the sanitizer keeps of it meanwhile.
struct Course {
    ucontext_t context{};
    const void* bottom = nullptr;
    std::size_t bytes = 0;
    void* kept = nullptr;
};

#ifdef __SANITIZE_ADDRESS__
// `kept` is null where the course that is left has ended.
void leaving(void** kept, const Course& to) {
    __sanitizer_start_switch_fiber(kept, to.bottom, to.bytes);
}
void arrived(void* kept, Course& from) {
    __sanitizer_finish_switch_fiber(kept, &from.bottom, &from.bytes);
}
#else
void leaving(void** /*kept*/, const Course& /*to*/) {}
void arrived(void* /*kept*/, Course& /*from*/) {}
#endif

// Comes back when `from` is taken up again. The sanitizer replaces swapcontext, and there warns on
// standard error, which is a scenario's; the two halves of it are left alone.
[[gnu::noinline]] void cross(Course& from, Course& to) {
    leaving(&from.kept, to);
    volatile bool back = false;
    getcontext(&from.context);
    if (!back) {
        back = true;
        setcontext(&to.context);
    }
    arrived(from.kept, to);
}

} // namespace

struct Fiber::Courses {
    std::function<void()> work;
    Stack stack;
    Course inside;
    Course outside;
    std::exception_ptr thrown;
    bool ended = false;

    void run() {
        arrived(nullptr, outside);
        try {
            work();
        } catch (...) {
            thrown = std::current_exception();
        }
        ended = true;
        leaving(nullptr, outside);
        setcontext(&outside.context);
    }

    // The start of a context takes numbers alone.
    static void start(unsigned high, unsigned low) {
        constexpr unsigned Half = 32;
        const auto address = (static_cast<std::uintptr_t>(high) << Half) | low;
        // NOLINTNEXTLINE(performance-no-int-to-ptr): it was one below
        reinterpret_cast<Courses*>(address)->run();
    }
};

Fiber::Fiber(std::function<void()> work) : courses_(std::make_unique<Courses>()) {
    constexpr unsigned Half = 32;
    Courses& all = *courses_;
    all.work = std::move(work);
    all.inside.bottom = all.stack.bottom();
    all.inside.bytes = StackBytes;
    getcontext(&all.inside.context);
    all.inside.context.uc_stack.ss_sp = all.stack.bottom();
    all.inside.context.uc_stack.ss_size = StackBytes;
    all.inside.context.uc_link = nullptr;
    const auto address = reinterpret_cast<std::uintptr_t>(&all);
    makecontext(&all.inside.context, reinterpret_cast<void (*)()>(&Courses::start), 2,
                static_cast<unsigned>(address >> Half), static_cast<unsigned>(address));
}

Fiber::~Fiber() = default;

void Fiber::resume() {
    cross(courses_->outside, courses_->inside);
    if (courses_->thrown)
        std::rethrow_exception(std::exchange(courses_->thrown, nullptr));
}

void Fiber::pause() {
    cross(courses_->inside, courses_->outside);
}

bool Fiber::ended() const noexcept {
    return courses_->ended;
}

} // namespace vorandine::scenario
