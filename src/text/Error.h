// The one exception of the system: a number, which programs test, and a text in French, which the
// office staff may come to read. All numbers in use stand here, so that none is given out twice.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace vorandine {

class Error : public std::runtime_error {
  public:
    Error(std::uint32_t number, const std::string& text)
        : std::runtime_error(text), number_(number) {}

    [[nodiscard]] std::uint32_t number() const noexcept { return number_; }

  private:
    std::uint32_t number_;
};

namespace errors {

// The stored record does not exist: the one number that callers of the database test.
constexpr std::uint32_t RecordMissing = 0x8004000B;

// Text, numbers, widgets.
constexpr std::uint32_t Overflow = 0x80040101;
constexpr std::uint32_t NotANumber = 0x80040102;
constexpr std::uint32_t TextRefused = 0x80040103;
constexpr std::uint32_t OutOfRange = 0x80040104;
constexpr std::uint32_t NotAnEntry = 0x80040105;
constexpr std::uint32_t TooManyLines = 0x80040106;

// Records and stores.
constexpr std::uint32_t FreeRecord = 0x80040201;
constexpr std::uint32_t FileUnknown = 0x80040202;
constexpr std::uint32_t KeyRefused = 0x80040203;
constexpr std::uint32_t RequestRefused = 0x80040204;
constexpr std::uint32_t UrlRefused = 0x80040205;
constexpr std::uint32_t StoreMissing = 0x80040206;
constexpr std::uint32_t StoreExists = 0x80040207;
constexpr std::uint32_t NotADatabase = 0x80040208;
constexpr std::uint32_t OtherProgram = 0x80040209;
constexpr std::uint32_t OtherVersion = 0x8004020A;
constexpr std::uint32_t ReadOnly = 0x8004020B;
constexpr std::uint32_t Locked = 0x8004020C;
constexpr std::uint32_t Damaged = 0x8004020D;
constexpr std::uint32_t DiskFull = 0x8004020E;
constexpr std::uint32_t StoreFailed = 0x8004020F;
constexpr std::uint32_t ReadHadFailed = 0x80040210;
constexpr std::uint32_t ChangedMeanwhile = 0x80040211;
constexpr std::uint32_t Unreachable = 0x80040212;

// The control and its host.
constexpr std::uint32_t NotReady = 0x80040301;
constexpr std::uint32_t CodeRefused = 0x80040302;
constexpr std::uint32_t RecordTooLong = 0x80040303;
constexpr std::uint32_t HelpMissing = 0x80040304;
constexpr std::uint32_t FigureTooWide = 0x80040305;
constexpr std::uint32_t MayNotWrite = 0x80040306;

// Anything thrown that is no Error.
constexpr std::uint32_t Unexpected = 0x8000FFFF;

} // namespace errors
} // namespace vorandine
