// The ids of the sample form's controls that no dialog of the add-in has.
#pragma once

#define ID_cmdAsk 2001
#define ID_cmdEnter 2002
#define ID_cmdInner 2003
#define ID_cmdMenu 2004
#define ID_cmdLater 2005
#define ID_lblAnswer 2006
#define ID_txt 2007
#define ID_txtHidden 2008
#define ID_lst 2009
#define ID_lv 2010
#define ID_cmb 2011
