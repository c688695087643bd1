// The build steps that only say that they are not available in this version.
#include "integration/not_built_yet.h"

#include <string>

namespace discwright::integration {

namespace {

void Halt(util::Context& context, const std::string& what, const forms::CheckBox& choice) {
  context.user.ShowMessage({"Integrating " + what + " is not available in this version, operation halted. Clear \"" +
                                choice.caption.get() + "\" on the contents page to build the CD without them.",
                            "Fatal Error", host::MessageIcon::kCritical});
  context.CancelApp();
}

}  // namespace

void AddWin2K(util::Context& context, std::string_view, std::string_view, bool, std::string_view, std::string_view,
              bool, bool) {
  Halt(context, "Windows 2000/XP/2003 setup files", context.main().ChkGet_Win2k);
}

void AddWin9x(util::Context& context, std::string_view, bool) {
  Halt(context, "Windows 98/98SE/Me setup files", context.main().ChkGet_Win9x);
}

void AddAdvTools(util::Context& context, bool, bool, std::string_view, std::string_view) {
  Halt(context, "the advanced tools", context.main().ChkGet_Advtools);
}

}  // namespace discwright::integration
