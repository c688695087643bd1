// Shows the progress of the mastering, which it reads from the output of the mastering tool.
#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>

#include "pipeline/mastering.h"
#include "util/paths.h"

namespace discwright::pipeline {

namespace {

constexpr std::size_t kNowhere = std::string_view::npos;
constexpr int kRed = 255;
constexpr std::size_t kPercentCharacters = 5;  // the length of "45.67"

bool Contains(std::string_view text, std::string_view part) { return text.find(part) != kNowhere; }

void ShowScanning(forms::FrmDiscwright& main, std::string_view piece) {
  constexpr std::string_view kScanning = "Scanning";
  const std::size_t found = piece.find(kScanning);
  if (found == kNowhere || Contains(piece, "Scanning tree...")) return;
  const std::size_t start = found + kScanning.size();
  const std::size_t next = piece.find(kScanning, start);
  main.LblSub_Step.caption = "Scanning : " + std::string(piece.substr(start, next == kNowhere ? next : next - start));
}

// Shows the number before the first percent sign of the piece. Nothing is shown if the sign is one of the first five
// characters, if a closing parenthesis follows it, or if the text before it is not a number.
void ShowPercent(forms::FrmDiscwright& main, std::string_view piece) {
  const std::size_t sign = piece.find('%');
  if (sign == kNowhere || sign < kPercentCharacters || piece.find("%)") == sign) return;
  const std::string number = util::Trim(piece.substr(sign - kPercentCharacters, kPercentCharacters));
  double percent = 0;
  const char* const end = number.data() + number.size();
  const auto parsed = std::from_chars(number.data(), end, percent);
  if (parsed.ec != std::errc() || parsed.ptr != end || !std::isfinite(percent)) return;
  // Halves are rounded to the even neighbour (the default rounding mode), as they have always been.
  const auto whole = static_cast<std::int64_t>(std::nearbyint(percent));
  main.BarSub_Step.value = std::clamp(whole, main.BarSub_Step.min.get(), main.BarSub_Step.max.get());
  main.LblSub_Step.caption = "Creating ISO File : " + number + "% Done";
}

// The tool writes "34418 extents written (67 Mb)" or "(67 MB)".
void ShowTotalSize(forms::FrmDiscwright& main, std::string_view piece) {
  constexpr std::size_t kSizeAfter = 17;
  const std::size_t written = piece.find("extents written");
  const std::size_t unit = std::min(piece.find("Mb", written), piece.find("MB", written));
  if (unit == kNowhere || unit < written + kSizeAfter) return;
  main.LblSub_Step.caption =
      "Total ISO size : " + std::string(piece.substr(written + kSizeAfter, unit - written - kSizeAfter)) + "MB";
}

}  // namespace

void ShowMasteringOutput(forms::FrmDiscwright& main, std::string_view TextPipe) {
  for (const char* phase : {"Calculating MD5 digests", "Finding duplicate files"}) {
    if (Contains(TextPipe, phase)) main.LblSub_Step.caption = phase;
  }
  ShowScanning(main, TextPipe);
  if (Contains(TextPipe, "Eltorito")) main.LblSub_Step.caption = "Writing Booting Info";
  ShowPercent(main, TextPipe);
  ShowTotalSize(main, TextPipe);
  if (Contains(TextPipe, "No space left on device")) {
    main.LblSub_Step.fore_color = kRed;
    main.LblAbort.caption = "Not enough free space to complete the ISO file !!!";
    main.LblAbort.visible = true;
  }
}

}  // namespace discwright::pipeline
