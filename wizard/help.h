// Defines the help viewer and the topics of the pages. Call ShowHelp to show the topic of a page.
#pragma once

#include <cstdint>
#include <string>

#include "host/user_interface.h"
#include "steps/context.h"

namespace discwright::wizard {

// A viewer for one help file.
class clsHTMLHelp {
 public:
  explicit clsHTMLHelp(host::UserInterface& user) : user_(user) {}

  void* hWnd = nullptr;    // the window that owns the viewer; null: none
  std::string FileName;    // the name of the help file in the program folder
  std::string HelpWindow;  // the name of a window type that the help file defines
  bool to_front = true;    // whether an open viewer comes to the front

  void ShowHelpContents() const;
  void ShowHelpIndex() const;
  void ShowTopicFileName(const std::string& topic_file) const;
  void ShowTopicID(int topic_id) const;

 private:
  host::HelpRequest Request(host::HelpCommand command) const;

  host::UserInterface& user_;
};

// The viewer counts as open if there is a window with this class and title.
inline constexpr const char* kHelpViewerClass = "HH Parent";
inline constexpr const char* kHelpViewerTitle = "The Vexa Rescue CD Help";

inline constexpr int kPageInView = 255;  // means the visible page

// Returns the id of a page's topic in the help file: 1110 for page 0, 1120 for page 1, up to 1210 for page 10.
constexpr int HelpTopic(int page) { return (page + 1) * 10 + 1100; }

// Shows the topic of page `intStep`, or of the visible page for kPageInView. Without `ForceShow`, does so only if the
// viewer is open.
void ShowHelp(steps::Context& context, int intStep, bool ForceShow);

}  // namespace discwright::wizard
