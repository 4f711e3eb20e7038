#pragma once
// Names and numbers by which other programs, tests above all, find the windows and their parts. They stay.
//
//   frame           class CadhostFrame; takes copied-data messages; menu commands by IDM_... below
//   drawing         class CadhostView, child of the frame, id 101
//   commands        class CadhostCommands, child of the frame, id 102; in it
//     history       class EDIT, id 1021, read-only
//     command line  class EDIT, id 1022
//   status bar      class msctls_statusbar32, id 103; part 0 coordinates, part 1 the meter's label,
//                   part 2 the meter: class msctls_progress32, id 1031
//   colour dialog   IDD_COLOR; its table of class CadhostColors, id 1041, the number's field, id 1042

#define IDR_FRAME 1

#define IDC_DRAWING 101
#define IDC_COMMANDS 102
#define IDC_HISTORY 1021
#define IDC_COMMAND_LINE 1022
#define IDC_STATUS 103
#define IDC_METER 1031

#define IDD_COLOR 2
#define IDC_COLOR_GRID 1041
#define IDC_COLOR_NUMBER 1042
#define IDC_COLOR_BY_LAYER 1043
#define IDC_COLOR_BY_BLOCK 1044

#define IDM_OPEN 40001
#define IDM_SAVE 40002
#define IDM_SAVE_AS 40003
#define IDM_CLOSE 40004
#define IDM_EXIT 40005
#define IDM_UNDO 40006
#define IDM_ZOOM_EXTENTS 40011
#define IDM_COLOR 40012
#define IDM_FIRST_DRAWING 40100
#define IDM_LAST_DRAWING 40199
