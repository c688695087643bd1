// Helper functions for path strings, files, folders and drives. None of them shows a message: after a failure they
// return false, an empty string or their input.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "util/notes.h"

namespace discwright::util {

bool IsPathSeparator(char character);

std::string Trim(std::string_view text);  // removes leading and trailing blanks (U+0020 only)

// Removes trailing blanks and appends "\", unless the last character that is not a blank is a separator. In that case
// the path does not change, and keeps its trailing blanks.
void AddBackslash(std::string& path);

// Removes blanks around the text, and then one pair of double quotes around it.
std::string StripQuotes(std::string_view text);

// The path of the file that the user has entered as `text`: StripQuotes, and one "\" removed from its end.
std::string NamedFile(std::string_view text);

// Removes blanks around the text and encloses it in double quotes, unless it already begins and ends with one.
std::string Quoted(std::string_view text);

// The text before its first NUL.
std::string TrimNull(std::string_view text);

// Splits a path at its last separator. Without a separator, `folder` becomes the current folder. When the separator is
// the last character, neither output changes; callers rely on this.
void SplitPath(std::string_view full_path, std::string& folder, std::string& file);

// The folder that contains a file or folder, without a separator at its end. For a drive, and for a name without a
// folder, the result is the input.
std::string ParentOf(std::string path);

// Whether two paths name one file. Paths of files that do not exist yet are compared by folder and name.
bool IsOneFile(const std::string& a, const std::string& b);

// A path in the spelling in which a user would type it into a field: the system's spelling. The result is the input
// when the system's spelling would be read as another path, for example because it contains a backslash.
std::string AsTyped(const std::string& path);

bool FolderExists(std::string_view path);  // false for an empty or blank path, without looking at the disk

// Whether the file can be opened for reading. If the path contains "*", whether any file or folder matches it. False
// for a folder without a wildcard. See NamedFile for quotes and blanks.
bool FileExists(std::string_view path);

// The same for steps that go on without the file when there is none. It notes a file that exists but cannot be opened,
// so that this is not mistaken for a missing file. `path` has no wildcard.
bool FileExists(Notes& notes, std::string_view path);

bool MakePath(std::string_view path);  // creates every missing folder of the path

// Deletes a file, even a read-only one. A missing file counts as deleted. Returns false, with a note, when the file
// could not be deleted.
bool RemoveIfExists(Notes& notes, const std::string& file);

// Deletes a folder with everything in it, including read-only, hidden and system files. Links are deleted, their
// targets are not; mount points stay with everything in them. Returns true when the folder does not exist afterwards.
// Notes what could not be deleted, if `notes` is given. `go_on`, when given, is asked before every file and folder;
// false ends the deletion at once.
bool DelTree(std::string_view path, Notes* notes = nullptr, const std::function<bool()>& go_on = {});

// The short (8.3) form of a path. Returns the input when there is none.
std::string GetShortPath(std::string_view path);

std::string FirstCDROMDrive();  // the first optical drive, for example "D:"; empty when there is none

int GetPlatformId();  // 1 for Windows 95, 98 and Me; 2 for the NT family and all other systems
bool IsWinNT();       // also true for all systems other than Windows

}  // namespace discwright::util
