// Does one piece of work, whose instructions are counted:
//   ovxid_work catalogue ...          loads /etc/known_ovx_ids
//   ovxid_work walk DIRECTORY         walks over a directory as over a node
#include <OvxIdentifier.h>

#include <cstring>

int main(int argc, char** argv) {
  OvxIdentifier identifier(nullptr);
  if (argc > 2 && std::strcmp(argv[1], "walk") == 0) {
    return OvxDTParser::parse(&identifier, argv[2]);
  }
  return 0;
}
