// Words the result of a build for the headless program and for the finish page.
#include "wizard/report.h"

#include "host/names.h"

namespace discwright::wizard {

namespace {

using steps::BuildEnd;
using steps::BuildResult;

// A place that begins with a quote is the command line of a program, not a path.
std::string NoteText(const util::Note& note) {
  const bool is_path = !note.place.starts_with('"');
  return (is_path ? host::PathToNative(note.place) : note.place) + ": " + note.cause;
}

// One MB has 1,048,576 bytes here, as on the label of an empty CD: one of 700 MB takes an image of "700.0 MB".
std::string Megabytes(std::int64_t bytes) {
  constexpr std::int64_t kBytesPerMegabyte = 1'048'576;
  const std::int64_t tenths = (bytes * 10 + kBytesPerMegabyte / 2) / kBytesPerMegabyte;
  return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + " MB";
}

std::string WithNotes(const util::Notes& notes) {
  const std::size_t warnings = notes.all().size();
  const std::size_t remarks = notes.remarks().size();
  std::string text;
  if (warnings > 0) text = Counted(warnings, "warning");
  if (remarks > 0) text += (text.empty() ? "" : " and ") + Counted(remarks, "remark");
  return text.empty() ? "" : ", with " + text;
}

std::vector<std::string> NoteLines(const util::Notes& notes) {
  std::vector<std::string> lines;
  for (const util::Note& note : notes.all()) lines.push_back(WarningLine(note));
  for (const util::Note& remark : notes.remarks()) lines.push_back(RemarkLine(remark));
  return lines;
}

// The lines that stand before the notes.
std::vector<std::string> FirstLines(const BuildResult& result) {
  if (result.end == BuildEnd::kFailed) return {result.why};
  if (result.end == BuildEnd::kCancelled || result.end == BuildEnd::kNone) {
    return {"If there is a file " + host::PathToNative(result.image) +
            ", do not use it: this build did not make it, or did not finish it."};
  }
  std::vector<std::string> lines = ImageLines(result);
  lines[1] += " (" + Megabytes(result.size) + ")";
  return lines;
}

std::string ReportText(const BuildResult& result, const util::Notes& notes) {
  std::string text;
  for (const std::vector<std::string>& lines : {FirstLines(result), NoteLines(notes), LogLines(result)}) {
    if (!text.empty() && !lines.empty()) text += "\r\n";
    for (const std::string& line : lines) text += line + "\r\n";
  }
  return text;
}

}  // namespace

std::string WarningLine(const util::Note& note) { return "warning: " + NoteText(note); }

std::string RemarkLine(const util::Note& remark) { return "remark: " + NoteText(remark); }

std::vector<std::string> ImageLines(const BuildResult& result) {
  return {"Image:   " + host::PathToNative(result.image), "Size:    " + std::to_string(result.size) + " bytes",
          "SHA-256: " + result.sha256};
}

std::vector<std::string> LogLines(const BuildResult& result) {
  if (result.log.empty()) return {};
  std::vector<std::string> lines = {"The end of " + host::PathToNative(result.log) + ":"};
  for (const std::string& line : result.log_tail) lines.push_back("  " + line);
  return lines;
}

std::string Counted(std::size_t count, const std::string& thing) {
  return std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
}

std::string ResultSentence(const BuildResult& result, const util::Notes& notes) {
  switch (result.end) {
    case BuildEnd::kMade:
    case BuildEnd::kMadeWithNotes:
      return "The image was made" + WithNotes(notes) + ".";
    case BuildEnd::kFailed:
      return "The image was not made.";
    case BuildEnd::kNone:
    case BuildEnd::kCancelled:
      break;
  }
  return "You have cancelled the build.";
}

void ShowReport(steps::Context& context) {
  forms::FrmDiscwright& main = context.main();
  main.LblResult.caption = ResultSentence(context.result, context.notes);
  main.TxtReport.text = ReportText(context.result, context.notes);
  main.LblResult.visible = true;
  main.TxtReport.visible = true;
}

}  // namespace discwright::wizard
