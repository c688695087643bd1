// The files of the CD, as the script reads them.
#pragma once

#include "boot/loader/files.h"
#include "boot/loader/iso9660.h"

namespace discwright::loader {

class CdFiles final : public Files {
 public:
  // `volume` is open and must outlive this object.
  explicit CdFiles(IsoVolume& volume) : volume_(volume) {}

  bool Exists(std::string_view path) override;
  FileText Read(std::string_view path, std::span<char> to) override;

 private:
  IsoVolume& volume_;
};

}  // namespace discwright::loader
