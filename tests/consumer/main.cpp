// Uses the installed library the way a media service does.
#include <iostream>

#include "ma/mdc_item.h"

int main() {
  ma::FolderItemInfo folder("Music", "u1");
  const std::string expected = "ItemType        : 32\ncaption         : Music\nuuid            : u1\n";
  if (folder.toString() != expected) {
    std::cerr << "unexpected dump:\n" << folder.toString();
    return 1;
  }
  std::cout << "consumer: ok\n";
  return 0;
}
