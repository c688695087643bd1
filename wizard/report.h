// Words what came of a build and what was noted on the way. The headless program prints these lines, and the finish
// page shows them. Call ShowReport after a build.
#pragma once

#include <string>
#include <vector>

#include "steps/context.h"

namespace discwright::wizard {

std::string WarningLine(const util::Note& note);   // "warning: <place>: <cause>"
std::string RemarkLine(const util::Note& remark);  // "remark: <place>: <cause>"

// The name, the size and the SHA-256 of a finished image, one line each.
std::vector<std::string> ImageLines(const steps::BuildResult& result);

// The end of the log of a failed mastering, below a line that names the log. Empty when the result has no log.
std::vector<std::string> LogLines(const steps::BuildResult& result);

// "1 warning", "2 warnings" and so on. `thing` is the word for one of them.
std::string Counted(std::size_t count, const std::string& thing);

// The sentence for the user that tells the result, for example "The image was made, with 1 warning and 2 remarks."
std::string ResultSentence(const steps::BuildResult& result, const util::Notes& notes);

// Fills in the two controls of the finish page that tell the result of the last build, and shows them.
void ShowReport(steps::Context& context);

}  // namespace discwright::wizard
