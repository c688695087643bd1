// The files of a volume, as the script reads them.
#pragma once

#include "boot/loader/files.h"
#include "boot/loader/volume.h"

namespace discwright::loader {

class VolumeFiles final : public Files {
 public:
  // `volume` is open and must outlive this object.
  explicit VolumeFiles(Volume& volume) : volume_(volume) {}

  [[nodiscard]] Medium medium() const override { return volume_.medium(); }
  bool Exists(std::string_view path) override;
  FileText Read(std::string_view path, std::span<char> to) override;

 private:
  Volume& volume_;
};

}  // namespace discwright::loader
