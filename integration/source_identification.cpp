// The tables of the tag files on Windows 2000/XP setup CDs.
#include "integration/source_identification.h"

#include <span>
#include <string>

#include "util/paths.h"

namespace discwright::integration {

namespace {

struct Edition {
  const char* tag_file;
  const char* caption;
};

struct ServicePack {
  const char* tag_file;
  const char* suffix;
};

struct WindowsFamily {
  std::span<const Edition> editions;           // if several are found, the last one counts
  std::span<const ServicePack> service_packs;  // highest first; the first one found counts
  std::int16_t build_num;
  std::int16_t major_ver;
  std::int16_t minor_ver;
};

constexpr Edition kXpEditions[] = {
    {"\\WIN51IP", "Microsoft Windows XP Professional Edition"},
    {"\\WIN51IC", "Microsoft Windows XP Home Edition"},
};

// These are the tag files of the Professional edition only, so a Home Edition is shown without its service pack. Kept
// as it has always been.
constexpr ServicePack kXpServicePacks[] = {
    {"\\WIN51IP.SP3", " SP3"},
    {"\\WIN51IP.SP2", " SP2"},
    {"\\WIN51IP.SP1", " SP1"},
};

constexpr Edition k2000Editions[] = {
    {"\\CDROM_IP.5", "Microsoft Windows 2000 Professional"},
    {"\\CDROM_IS.5", "Microsoft Windows 2000 Server"},
    {"\\CDROM_IA.5", "Microsoft Windows 2000 Advanced Server"},
};

constexpr ServicePack k2000ServicePacks[] = {
    {"\\CDROMSP5.TST", " SP5"}, {"\\CDROMSP4.TST", " SP4"}, {"\\CDROMSP3.TST", " SP3"},
    {"\\CDROMSP2.TST", " SP2"}, {"\\CDROM_SP.TST", " SP1"},
};

constexpr WindowsFamily kFamilies[] = {
    {kXpEditions, kXpServicePacks, 2600, 5, 1},
    {k2000Editions, k2000ServicePacks, 2195, 5, 0},
};

bool HasTagFile(std::string_view Source, const char* tag_file) {
  return util::FileExists(std::string(Source) + tag_file);
}

const Edition* FindEdition(const WindowsFamily& family, std::string_view Source) {
  const Edition* found = nullptr;
  for (const Edition& edition : family.editions) {
    if (HasTagFile(Source, edition.tag_file)) found = &edition;
  }
  return found;
}

const ServicePack* FindServicePack(const WindowsFamily& family, std::string_view Source) {
  for (const ServicePack& service_pack : family.service_packs) {
    if (HasTagFile(Source, service_pack.tag_file)) return &service_pack;
  }
  return nullptr;
}

}  // namespace

void IdentifyWinVer(forms::FrmDiscwright& main, std::string_view Source, std::int16_t& BuildNum, std::int16_t& MajorVer,
                    std::int16_t& MinorVer) {
  std::string caption = "Unknown Windows Version";
  // Both families share this variable. If a folder has the tag files of both, Windows 2000 replaces the caption and is
  // shown without a service pack once one of Windows XP was found. Kept as it has always been.
  const ServicePack* service_pack = nullptr;
  for (const WindowsFamily& family : kFamilies) {
    const Edition* edition = FindEdition(family, Source);
    if (edition == nullptr) continue;
    caption = edition->caption;
    if (service_pack == nullptr) {
      service_pack = FindServicePack(family, Source);
      if (service_pack != nullptr) caption += service_pack->suffix;
    }
    BuildNum = family.build_num;
    MajorVer = family.major_ver;
    MinorVer = family.minor_ver;
  }
  main.LblWin2KOSVer.caption = caption;
}

void ShowWinVer(forms::FrmDiscwright& main, const std::string& Source) {
  std::int16_t BuildNum = 0;
  std::int16_t MajorVer = 0;
  std::int16_t MinorVer = 0;
  IdentifyWinVer(main, Source, BuildNum, MajorVer, MinorVer);
}

}  // namespace discwright::integration
