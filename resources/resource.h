/* Numbers of the driver's dialogs, controls and pictures, grouped by page. Names of controls can be
   used in the scripts of `kpdtool sheet`. */
#pragma once

/* Dialogs */
#define IDD_DEVICE_OPTIONS 101
#define IDD_PRINTING_AREA 102
#define IDD_COLOR 103
#define IDD_TOOLS 104
#define IDD_MAGNETIC_ENCODING 105
#define IDD_IMPORT_EXPORT 106
#define IDD_LAMINATION 107
#define IDD_ABOUT 108
#define IDD_HEATING_ENERGY 109
#define IDD_REWRITE 112

/* Device Options */
#define IDC_COPIES 1001
#define IDC_COPIES_SCROLL 1002

/* Color */
#define IDC_BRIGHTNESS 1201
#define IDC_CONTRAST 1202
#define IDC_SATURATION 1203
#define IDC_CYAN 1204
#define IDC_MAGENTA 1205
#define IDC_YELLOW 1206
#define IDC_SHARPNESS 1207
#define IDC_GAMMA 1208

/* Tools */
#define IDC_POSITION_A 1301
#define IDC_POSITION_A_SCROLL 1302
#define IDC_POSITION_B 1303
#define IDC_POSITION_B_SCROLL 1304
#define IDC_POSITION_C 1305
#define IDC_POSITION_C_SCROLL 1306

/* Magnetic Encoding */
#define IDC_RETRY_CARDS 1501
#define IDC_RETRY_CARDS_SCROLL 1502
#define IDC_RETRY_TIMES 1503
#define IDC_RETRY_TIMES_SCROLL 1504
#define IDC_START_RECORD 1505
#define IDC_START_RECORD_SCROLL 1506
#define IDC_TRACK_1 1507
#define IDC_TRACK_2 1508
#define IDC_TRACK_3 1509
#define IDC_FILTER_PREFIX 1510
#define IDC_FILTER_SUFFIX 1511

/* Lamination */
#define IDC_LAMINATION_A 1701
#define IDC_LAMINATION_A_SCROLL 1702
#define IDC_LAMINATION_B 1703
#define IDC_LAMINATION_B_SCROLL 1704
