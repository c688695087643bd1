// Which of the two families of Windows this is.
#pragma once

namespace discwright::host {

// False on Windows 95, 98 and Me, which have no links, no opening of folders and no renaming over a file.
bool IsNtFamily();

}  // namespace discwright::host
