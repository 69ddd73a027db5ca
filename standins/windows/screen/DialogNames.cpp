#include "standins/windows/screen/DialogNames.h"

namespace kestrune::standins {

const DialogNames& KestruneDialogNames() {
  static const DialogNames names = {
      {{u"lblStatus", u"frmConnectProgress"},
       {u"lstModules", u"frmConnect"},
       {u"lvMappings", u"frmOptions"},
       {u"lstTarget", u"frmMapWizard"},
       {u"List1", u"frmImport"},
       {u"lblProduct", u"frmAbout"}},
      {{u"mnuMappings", {u"mnuMappingsCopy", u"mnuMappingsPaste", u"mnuMappingsDefault"}},
       {u"mnuLines", {u"mnuLinesCopy", u"mnuLinesSelectAll"}}}};
  return names;
}

}  // namespace kestrune::standins
