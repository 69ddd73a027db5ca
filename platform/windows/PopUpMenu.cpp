#include "platform/windows/PopUpMenu.h"

#include <memory>

#include "platform/com/ComText.h"

namespace kestrune {

namespace {

struct MenuDeleter {
  void operator()(HMENU menu) const { DestroyMenu(menu); }
};

}  // namespace

MenuItem* ChooseFromMenu(const Menu& menu, HWND dialog, HWND below) {
  const std::unique_ptr<std::remove_pointer_t<HMENU>, MenuDeleter> window(CreatePopupMenu());
  UINT_PTR id = 0;
  for (const MenuItem* item : menu.Items())
    AppendMenuW(window.get(), item->Enabled() ? MF_STRING : MF_STRING | MF_GRAYED, ++id,
                Wide(item->Caption()));
  TPMPARAMS around = {.cbSize = sizeof around};
  GetWindowRect(below, &around.rcExclude);
  const int chosen = TrackPopupMenuEx(
      window.get(), TPM_RETURNCMD | TPM_NONOTIFY | TPM_LEFTALIGN | TPM_TOPALIGN | TPM_VERTICAL,
      around.rcExclude.left, around.rcExclude.bottom, dialog, &around);
  return chosen > 0 ? menu.Items()[static_cast<std::size_t>(chosen) - 1] : nullptr;
}

}  // namespace kestrune
