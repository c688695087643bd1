// The loader's main function. There is no boot menu yet: it shows a message, waits for a key and restarts the machine.
#include "boot/loader/pc/console.h"
#include "boot/loader/pc/keyboard.h"
#include "boot/loader/pc/loader_main.h"
#include "boot/loader/pc/power.h"

namespace discwright::loader {

void Main(Console& console, BiosDisk& disk) {
  static_cast<void>(disk);
  console.Write(
      "\nVexa Rescue CD\n"
      "This disc has no boot menu: the menu is not part of this version.\n"
      "Remove the disc and press a key to start again.\n");
  ForgetKeys();
  static_cast<void>(WaitForKey());
  Restart();
}

}  // namespace discwright::loader
