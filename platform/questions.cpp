#include "platform/questions.h"

namespace kiv {

MenuItem* findMenuItem(Menu& menu, int id) {
  if (id == 0) return nullptr;
  for (MenuItem& item : menu) {
    if (item.id == id) return &item;
    if (MenuItem* below = findMenuItem(item.items, id)) return below;
  }
  return nullptr;
}

}  // namespace kiv
