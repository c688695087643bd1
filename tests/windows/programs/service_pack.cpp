// Stands for a service pack's installer: "service_pack.exe -s:FOLDER" leaves its arguments in FOLDER\I386\SVCPACK.INF.
#include <fstream>
#include <string>

int main(int count, char** arguments) {
  if (count != 2 || std::string(arguments[1]).substr(0, 3) != "-s:") return 1;
  std::ofstream file(std::string(arguments[1]).substr(3) + "\\I386\\SVCPACK.INF", std::ios::binary);
  file << arguments[1];
  return file.flush() ? 0 : 2;
}
