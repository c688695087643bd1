// A program in place of the installer of a service pack: "service_pack.exe -s:FOLDER" writes its arguments to
// FOLDER\I386\SVCPACK.INF.
#include <fstream>
#include <string>

int main(int count, char** arguments) {
  if (count != 2 || std::string(arguments[1]).substr(0, 3) != "-s:") return 1;
  std::ofstream file(std::string(arguments[1]).substr(3) + "\\I386\\SVCPACK.INF", std::ios::binary);
  file << arguments[1];
  return file.flush() ? 0 : 2;
}
