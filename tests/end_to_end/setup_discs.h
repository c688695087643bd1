// Synthetic setup and tool CDs, laid out as the real ones: tag files, loaders, scripts, cabinets.
#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace discwright::testing {

// The bytes of a disc's files by their paths, in the names that they have on the disc.
using Disc = std::map<std::string, std::string>;

enum class Edition { kHome, kProfessional };

Disc Windows2000Disc(int service_pack);  // 0: none
Disc WindowsXpDisc(Edition edition, int service_pack);
Disc Windows98Disc();
Disc WindowsMeDisc();
Disc ErdCommanderDisc();
Disc BlueConDisc();

enum class Shown { kUpperCase, kLowerCase };  // how a system shows the names

// Puts a disc's files below a folder, read only and of an old date, as a mounted CD shows them.
void Insert(const Disc& disc, const std::filesystem::path& folder, Shown names);

// Puts them there writable and in the names of the disc.
void Unpack(const Disc& disc, const std::filesystem::path& folder);

// A disc's files with another name for one folder, and the disc's files below one folder with its name cut off.
Disc Renamed(const Disc& disc, const std::string& folder, const std::string& name);
Disc FilesBelow(const Disc& disc, const std::string& folder);

// Every place of `find` replaced.
std::string Replaced(std::string text, const std::string& find, const std::string& replace);

}  // namespace discwright::testing
