// Stands in the password step's place until that is built.
#include "pipeline/boot_password.h"

namespace discwright::pipeline {

void ProtectBootMenu(util::Context& context, std::string_view, std::string_view) {
  const std::string option = context.main().ChkPassProtect.caption;
  context.user.ShowMessage(
      {"Protecting the boot menu by a password is not available in this version, operation "
       "halted. Clear \"" +
           option + "\" to build the CD without it.",
       "Fatal Error", host::MessageIcon::kCritical, false});
  context.CancelApp();
}

}  // namespace discwright::pipeline
