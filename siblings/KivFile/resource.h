// Ids of the resource script, for it and for the dialog. Plain numbers only: resource compilers read this.
#pragma once

#define IDD_OPEN 201

#ifndef IDOK
#define IDOK 1
#define IDCANCEL 2
#endif

#define IDC_OPEN_FOLDER 2001
#define IDC_OPEN_RELOAD 2002
#define IDC_OPEN_TREE 2003
#define IDC_OPEN_FILTER 2004
#define IDC_OPEN_ALL 2005
#define IDC_OPEN_LIST 2006
#define IDC_OPEN_STATE 2007
#define IDC_OPEN_COUNT 2008
#define IDC_OPEN_DWG 2009
#define IDC_OPEN_DXF 2010
#define IDC_OPEN_DWT 2011
#define IDC_OPEN_FORMAT_NOTE 2012
#define IDC_OPEN_FORMAT_LABEL 2013
#define IDC_OPEN_FILTER_LABEL 2014
