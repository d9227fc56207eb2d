// Identifiers in the tests' resources; none that the driver's resources have.
#pragma once

#define IDB_COLORS 1001
#define IDI_SIZES 1002
#define IDR_BYTES 1004

#define IDD_CLASSES 1010
#define IDD_FIRST_FORM 1011
#define IDD_OWNED 1012
#define IDD_GROUPS 1013
#define IDD_SHEET 1014
#define IDD_PAGE 1015
#define IDD_UNKNOWN_CLASS 1016
#define IDD_UNKNOWN_CLASS_ALLOWED 1017
#define IDD_EMPTY 1018
#define IDD_LABELS 1019
