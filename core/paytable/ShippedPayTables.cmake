# cmake -DPAY_TABLES=data/Tolvane.ini -DTEMPLATE=... -DRESULT=... -P ShippedPayTables.cmake: writes the source that
# holds the text of the pay tables.
file(READ "${PAY_TABLES}" TEXT)
configure_file("${TEMPLATE}" "${RESULT}" @ONLY)
