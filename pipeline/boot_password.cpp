// Writes the password into the boot script.
#include "pipeline/boot_password.h"

#include <optional>
#include <string>

#include "host/files.h"
#include "host/native_text.h"
#include "integration/patching.h"
#include "util/paths.h"
#include "util/program_folder.h"

namespace discwright::pipeline {

namespace {

constexpr const char* kRequest = "Set PasswordRequest=1";

bool IsProtected(const std::string& script_text, const std::string& password_line) {
  const std::optional<std::string> line = host::CodePageBytes(password_line);
  return line && script_text.find(kRequest) != std::string::npos && script_text.find(*line) != std::string::npos;
}

void CheckProtection(util::Notes& notes, const std::string& script, const std::string& password_line) {
  const host::Result<std::string> text = host::ReadWholeFile(script);
  if (text.status.error == host::ErrorClass::kNotFound) {
    notes.Add(script, "is missing: the boot menu is not protected by a password");
  } else if (notes.Check(text.status, script,
                         "could not be read, so the boot menu may not be protected by a password") &&
             !IsProtected(text.value, password_line)) {  // for example a script of the user without these two lines
    notes.Add(script, "lacks the lines that set the password: the boot menu is not protected by a password");
  }
}

}  // namespace

void ProtectBootMenu(steps::Context& context, std::string_view first_password, std::string_view second_password) {
  forms::Label& label = context.main().LblSub_Step;
  label.caption = "Adding Password Protection to the Boot Script";
  label.Refresh();
  if (first_password != second_password) {
    context.user.ShowMessage({"Entered Passwords doesn't match, password protection will be disabled",
                              "Password Protection disabled", host::MessageIcon::kCritical});
    return;
  }
  const std::string script = util::PathOf(util::Item::kWorkspace) + "\\boot\\scripts\\main.cds";
  // The password is written as it was typed. A quote in it ends the value early. Kept as it has always been.
  const std::string line = std::string("Set PasswordString=\"").append(first_password).append("\"");
  integration::PatchTextFile(context, script, "Set PasswordRequest=0", kRequest);
  integration::PatchTextFile(context, script, "Set PasswordString=\"\"", line);
  CheckProtection(context.notes, script, line);
}

}  // namespace discwright::pipeline
