// Makes the memory above 1 MB reachable (line A20 of the address bus).
#pragma once

namespace discwright::loader {

// Returns false when no way works. Then every odd megabyte shows the one below it.
[[nodiscard]] bool EnableA20();

}  // namespace discwright::loader
