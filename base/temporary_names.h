// The names of the files that this program writes beside other files, and renames or deletes soon. All begin with
// ".discwright-", so that what a killed run left can be recognised: IsTemporaryName(name).
#pragma once

#include <string>
#include <string_view>

namespace discwright::base {

// Of a file that replaces another one: ".discwright-1234-0". `number` counts the files of the process.
std::string TemporaryName(unsigned long process, unsigned long number);

// Of the unfinished file `name`: ".discwright-NAME.part". It is the same in every run, so that a run finds what an
// earlier one left. Of a long name only the first 200 bytes are used.
std::string PartName(std::string_view name);

// Of a file that is made to find out whether the file `name` can be made: ".discwright-NAME.test".
std::string TestName(std::string_view name);

// Whether a name has one of these three forms.
bool IsTemporaryName(std::string_view name);

}  // namespace discwright::base
