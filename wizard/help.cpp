// Sends help requests to the viewer of the host.
#include "wizard/help.h"

#include "host/system.h"
#include "util/program_folder.h"
#include "wizard/pages.h"

namespace discwright::wizard {

namespace {

constexpr const char* kHelpWindow = "Down";

}  // namespace

host::HelpRequest clsHTMLHelp::Request(host::HelpCommand command) const {
  host::HelpRequest request{hWnd, host::ProgramFolder() + "\\" + FileName + ">" + HelpWindow, command};
  request.to_front = to_front;
  return request;
}

void clsHTMLHelp::ShowHelpContents() const { user_.ShowHelp(Request(host::HelpCommand::kContents)); }

void clsHTMLHelp::ShowHelpIndex() const { user_.ShowHelp(Request(host::HelpCommand::kIndex)); }

void clsHTMLHelp::ShowTopicFileName(const std::string& topic_file) const {
  host::HelpRequest request = Request(host::HelpCommand::kTopicFile);
  request.topic_file = topic_file;
  user_.ShowHelp(request);
}

void clsHTMLHelp::ShowTopicID(int topic_id) const {
  host::HelpRequest request = Request(host::HelpCommand::kTopicId);
  request.topic_id = topic_id;
  user_.ShowHelp(request);
}

void ShowHelp(steps::Context& context, int intStep, bool ForceShow) {
  if (!ForceShow && !context.user.HelpIsOpen(kHelpViewerClass, kHelpViewerTitle)) return;
  clsHTMLHelp help(context.user);
  help.FileName = util::NameInFolder(util::Item::kHelpFile);
  help.HelpWindow = kHelpWindow;
  help.to_front = ForceShow;  // a viewer that only follows the pages must not cover them
  help.ShowTopicID(HelpTopic(intStep == kPageInView ? PageInView(context.main()) : intStep));
}

}  // namespace discwright::wizard
