// Leaves the loader for good: restart, power off, the next device.
#pragma once

namespace discwright::loader {

[[noreturn]] void Restart();

// Switches the machine off. Returns when its BIOS cannot do that.
void PowerOff();

// Lets the BIOS start from the next device of its list. Some BIOSes restart the machine instead.
[[noreturn]] void StartNextDevice();

}  // namespace discwright::loader
