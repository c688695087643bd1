// Names the files by which the pages recognise setup folders and tool CDs. Append one of them to the path of the
// folder.
#pragma once

namespace discwright::wizard {

inline constexpr const char* kWin2KFile = "\\setupldr.bin";
inline constexpr const char* kWin9xFile = "\\mini.cab";
inline constexpr const char* kErdCommanderFile = "\\I386\\SYSTEM32\\CONFIG\\SOFTWARE";
inline constexpr const char* kBlueConFiles = "\\I386\\SYSTEM32\\OOBC*.*";

}  // namespace discwright::wizard
