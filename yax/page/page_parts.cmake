# Writes the files of a page into a C++ source: cmake -DHERE=FOLDER -DSCRIPT_FILE=FILE -DTO=FILE -P page_parts.cmake
file(READ "${HERE}/viewer/page.html" FRAME)
file(READ "${HERE}/viewer/page.css" STYLE)
file(READ "${SCRIPT_FILE}" SCRIPT)
configure_file("${HERE}/page_parts.cpp.in" "${TO}" @ONLY)
