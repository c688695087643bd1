// The help viewer, and the topics of the pages.
#pragma once

#include <cstdint>
#include <string>

#include "host/user_interface.h"
#include "steps/context.h"

namespace discwright::wizard {

// One viewer on one help file.
class clsHTMLHelp {
 public:
  explicit clsHTMLHelp(host::UserInterface& user) : user_(user) {}

  void* hWnd = nullptr;    // the window that the viewer belongs to; null: none
  std::string FileName;    // of the help file, in the program folder
  std::string HelpWindow;  // the viewer's window type, which the help file defines

  void ShowHelpContents() const;
  void ShowHelpIndex() const;
  void ShowTopicFileName(const std::string& topic_file) const;
  void ShowTopicID(int topic_id) const;

 private:
  host::HelpRequest Request(host::HelpCommand command) const;

  host::UserInterface& user_;
};

// The viewer is open when there is a window of this class and title.
inline constexpr const char* kHelpViewerClass = "HH Parent";
inline constexpr const char* kHelpViewerTitle = "The Vexa Rescue CD Help";

inline constexpr int kPageInView = 255;

// The numeric id of a page's topic: 1110 for page 0 to 1210 for page 10.
constexpr int HelpTopic(int page) { return (page + 1) * 10 + 1100; }

// Moves the help viewer to a page's topic; kPageInView means the page in view. Without `ForceShow` only when the viewer
// is open.
void ShowHelp(steps::Context& context, int intStep, bool ForceShow);

}  // namespace discwright::wizard
