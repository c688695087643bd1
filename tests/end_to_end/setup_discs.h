// Synthetic setup and tool CDs with the layout of real ones: tag files, loaders, scripts, cabinets.
#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace discwright::testing {

// The contents of a disc's files by their paths, spelled as on the disc.
using Disc = std::map<std::string, std::string>;

enum class Edition { kHome, kProfessional };

Disc Windows2000Disc(int service_pack);  // 0 for a disc without one
Disc WindowsXpDisc(Edition edition, int service_pack);
Disc Windows98Disc();
Disc WindowsMeDisc();
Disc ErdCommanderDisc();
Disc BlueConDisc();

enum class Shown { kUpperCase, kLowerCase };  // the letter case in which a system shows the names of a CD

// Writes a disc's files below a folder, read-only and with an old date, as on a mounted CD.
void Insert(const Disc& disc, const std::filesystem::path& folder, Shown names);

// Writes a disc's files below a folder, writable and with the names of the disc.
void Unpack(const Disc& disc, const std::filesystem::path& folder);

// The first returns the files with one folder renamed, the second the files of one folder with their paths below it.
Disc Renamed(const Disc& disc, const std::string& folder, const std::string& name);
Disc FilesBelow(const Disc& disc, const std::string& folder);

// Replaces every occurrence of `find`.
std::string Replaced(std::string text, const std::string& find, const std::string& replace);

}  // namespace discwright::testing
