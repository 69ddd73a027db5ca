// The ids of the dialogs' controls, one for each name; the same name in two dialogs has the same id.
#pragma once

#define ID_cmdOK 1      // the id by which the system knows the OK button
#define ID_cmdCancel 2  // the id by which it knows the button that Esc presses

#define ID_lblStatus 1001
#define ID_lblCaption 1002
#define ID_lstModules 1003
#define ID_lblTips 1004
#define ID_cmdManual 1005
#define ID_cmdHelp 1006

#define ID_lblPackage 1010
#define ID_lblPackageName 1011
#define ID_lblModule 1012
#define ID_lblModulePath 1013
#define ID_lblFilter 1014
#define ID_cmbViews 1015
#define ID_lblRules 1016
#define ID_lvMappings 1017
#define ID_cmdMap 1018
#define ID_cmdCombine 1019
#define ID_cmdRemove 1020
#define ID_cmdMappings 1021
#define ID_cmdReloadAttribs 1022
#define ID_cmdSaveAndImport 1023

#define ID_lblPrompt 1030
#define ID_lstExtra 1031
#define ID_lblSep 1032
#define ID_txtSep 1033
#define ID_lstTarget 1034
#define ID_lblPreview 1037
#define ID_cmdBack 1035
#define ID_cmdNext 1036

#define ID_Label1 1040
#define ID_List1 1041
#define ID_cmdClose 1042

#define ID_lblProduct 1050
#define ID_lblVersion 1051
#define ID_txtEntry 1052
