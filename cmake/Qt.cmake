# SPDX-License-Identifier: MIT
# The version of Qt that everything is built with: the one place that knows. Targets link ${QT}::Core and the like.
set(INDICATORUI_QT 5 CACHE STRING "Major version of Qt to build with: 5 or 6")
set_property(CACHE INDICATORUI_QT PROPERTY STRINGS 5 6)
if(INDICATORUI_QT EQUAL 5)
    set(QT_MINIMUM 5.15)
elseif(INDICATORUI_QT EQUAL 6)
    set(QT_MINIMUM 6.4) # the first whose text converters know the encodings of China
else()
    message(FATAL_ERROR "INDICATORUI_QT is ${INDICATORUI_QT}; it can be 5 or 6")
endif()
set(QT Qt${INDICATORUI_QT})

# COMPONENT...: a macro, as the scanner of Qt objects reads what the package leaves in the folder's variables.
macro(find_qt)
    find_package(${QT} ${QT_MINIMUM} REQUIRED COMPONENTS ${ARGN})
endmacro()
