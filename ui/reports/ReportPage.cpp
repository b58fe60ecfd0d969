#include "ui/reports/ReportPage.h"
