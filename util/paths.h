// Small stateless functions on path strings, files, folders and drives. None shows a message: every failure becomes
// false, an empty string or an unchanged input.
#pragma once

#include <string>
#include <string_view>

#include "util/notes.h"

namespace discwright::util {

bool IsPathSeparator(char character);

std::string Trim(std::string_view text);  // without leading and trailing blanks (U+0020 only)

// Appends "\" to a path that, trimmed of blanks, does not end in a separator; trailing blanks go then. Otherwise the
// path stays as it is, blanks included.
void AddBackslash(std::string& path);

// Trimmed text; one pair of double quotes around it goes.
std::string StripQuotes(std::string_view text);

// The file that a text means: without blanks and one pair of double quotes around it, and without one trailing "\".
std::string NamedFile(std::string_view text);

// Trimmed text in double quotes, unless it already starts and ends with one. The counterpart of StripQuotes.
std::string Quoted(std::string_view text);

// The text before its first NUL.
std::string TrimNull(std::string_view text);

// Splits at the last separator. Without one the folder is the current directory; when the separator is the last
// character neither output changes.
void SplitPath(std::string_view full_path, std::string& folder, std::string& file);

// The folder in which a file or folder stands, without a separator at its end; a drive, or a name alone, is its own.
std::string ParentOf(std::string path);

// A path as the user would type it into a field: in the system's spelling, except where that would be read as another
// path, because a name in it holds a backslash.
std::string AsTyped(const std::string& path);

bool FolderExists(std::string_view path);  // empty or blank: false, without touching the disk

// Whether the NamedFile can be opened. With a "*" in it: whether anything matches. A folder without a wildcard gives
// false.
bool FileExists(std::string_view path);

bool MakePath(std::string_view path);  // creates every missing folder

// Deletes a folder with everything under it, read-only, hidden and system files too; links are removed, never
// followed. True when the folder is gone afterwards; what could not be deleted is added to `notes` when given.
bool DelTree(std::string_view path, Notes* notes = nullptr);

// The 8.3 form of an existing path; otherwise the input.
std::string GetShortPath(std::string_view path);

std::string FirstCDROMDrive();  // of the first optical drive ("D:"), or ""

int GetPlatformId();  // 1 Windows 95/98/Me, 2 NT family and every other system
bool IsWinNT();

}  // namespace discwright::util
