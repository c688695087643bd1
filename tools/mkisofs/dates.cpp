// Converts seconds since 1970 to the date fields of ISO 9660.
#include "tools/mkisofs/dates.h"

#include <algorithm>
#include <chrono>
#include <span>

namespace discwright::tools::mkisofs {
namespace {

using std::chrono::seconds;
using std::chrono::sys_days;
using std::chrono::sys_seconds;
using std::chrono::year;

constexpr std::int64_t FirstSecondOf(int number) {
  return sys_seconds(sys_days(year(number) / 1 / 1)).time_since_epoch().count();
}

constexpr std::int64_t kFirstRecorded = FirstSecondOf(1900);
constexpr std::int64_t kLastRecorded = FirstSecondOf(2156) - 1;
constexpr std::int64_t kFirstOfVolume = FirstSecondOf(1);
constexpr std::int64_t kLastOfVolume = FirstSecondOf(10000) - 1;

struct Parts {
  unsigned year, month, day, hour, minute, second;
};

Parts Split(std::int64_t since_1970) {
  const sys_seconds moment{seconds(since_1970)};
  const sys_days midnight = std::chrono::floor<std::chrono::days>(moment);
  const std::chrono::year_month_day date(midnight);
  const std::chrono::hh_mm_ss time(moment - midnight);
  return {static_cast<unsigned>(static_cast<int>(date.year())),
          static_cast<unsigned>(date.month()),
          static_cast<unsigned>(date.day()),
          static_cast<unsigned>(time.hours().count()),
          static_cast<unsigned>(time.minutes().count()),
          static_cast<unsigned>(time.seconds().count())};
}

void StoreDigits(std::span<std::uint8_t> field, unsigned value) {
  for (std::size_t i = field.size(); i > 0; --i, value /= 10)
    field[i - 1] = static_cast<std::uint8_t>('0' + value % 10);
}

}  // namespace

// ECMA-119 9.1.5 defines this format: the year counts from 1900, and the last byte is the time zone.
RecordingTime MakeRecordingTime(std::int64_t seconds) {
  const Parts parts = Split(std::clamp(seconds, kFirstRecorded, kLastRecorded));
  const auto byte = [](unsigned value) { return static_cast<std::uint8_t>(value); };
  return {byte(parts.year - 1900),
          byte(parts.month),
          byte(parts.day),
          byte(parts.hour),
          byte(parts.minute),
          byte(parts.second),
          0};
}

// ECMA-119 8.4.26.1 defines this format: decimal digits down to hundredths of a second, then the time zone as a binary
// number.
VolumeTime MakeVolumeTime(std::int64_t seconds) {
  const Parts parts = Split(std::clamp(seconds, kFirstOfVolume, kLastOfVolume));
  VolumeTime time = NoVolumeTime();
  StoreDigits(std::span(time).subspan(0, 4), parts.year);
  std::size_t at = 4;
  for (const unsigned part : {parts.month, parts.day, parts.hour, parts.minute, parts.second}) {
    StoreDigits(std::span(time).subspan(at, 2), part);
    at += 2;
  }
  return time;
}

VolumeTime NoVolumeTime() {
  VolumeTime time;
  time.fill('0');
  time.back() = 0;
  return time;
}

}  // namespace discwright::tools::mkisofs
