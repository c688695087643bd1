// The program folder of one user, for a program that is installed for all users: nobody can build in the installed
// folder. At the start of the program call WhyNoUsersFolder, before anything asks for the program folder.
#pragma once

#include <string>

#include "util/notes.h"

namespace discwright::util {

// If this program is installed, which Item::kInstalledList in its folder shows, makes the user's folder
// (host::DataHome and "discwright"), brings its files up to date, and makes it the program folder. Does nothing if the
// program is not installed. Returns why the program cannot work there, as a message for the user; empty on success.
//
// The user's folder has a copy of the list, which is written last. While both lists are equal, only missing files are
// copied. Otherwise a file is copied or deleted if it has the digest of the former list; a file that the user has
// changed stays. Remarks name these files, and a folder that was filled or updated. Every file appears whole, and what
// a killed start has not done, the next one does. Several starts may do this at the same time: they write the same.
std::string WhyNoUsersFolder(Notes& notes);

// Whether the program works in the user's folder, because it is installed.
bool WorksInUsersFolder();

}  // namespace discwright::util
