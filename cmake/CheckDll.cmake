# Looks at DLL as the linker has left it: built for ARCH, exporting exactly what COM and regsvr32 ask for under the plain
# names, importing nothing but what every Windows has. Where that does not hold, DLL is removed and the build fails.
cmake_minimum_required(VERSION 3.25)
set(kind_x86_64 pei-x86-64)
set(kind_i686 pei-i386)
set(exported DllCanUnloadNow DllGetClassObject DllInstall DllRegisterServer DllUnregisterServer)
set(system ADVAPI32 COMCTL32 GDI32 KERNEL32 MSVCRT OLE32 OLEAUT32 SHELL32 USER32)

function(refuse)
  file(REMOVE ${DLL})
  message(FATAL_ERROR ${DLL} ${ARGN})
endfunction()

# Every match of PATTERN in the headers, each without the match of PREFIX.
function(collect out prefix pattern)
  string(REGEX MATCHALL "${prefix}${pattern}" found "${headers}")
  list(TRANSFORM found REPLACE "${prefix}" "")
  set(${out} ${found} PARENT_SCOPE)
endfunction()

execute_process(COMMAND ${OBJDUMP} -p ${DLL} OUTPUT_VARIABLE headers COMMAND_ERROR_IS_FATAL ANY)
string(REPLACE "[" "(" headers "${headers}")  # brackets would join the items of a list
string(REPLACE "]" ")" headers "${headers}")

collect(kind "file format " "[^ \n]+")
if(NOT kind STREQUAL kind_${ARCH})
  refuse(" is a file of the kind ${kind}.")
endif()

string(FIND "${headers}" "Name Pointer) Table" names_at)
string(SUBSTRING "${headers}" ${names_at} -1 names)
string(REGEX REPLACE "\n\n.*" "" names "${names}")
string(REGEX MATCHALL "\\( *[0-9]+\\) [^\n]+" names "${names}")
list(TRANSFORM names REPLACE ".* " "")
list(SORT names)
if(NOT names STREQUAL exported)
  refuse(" exports ${names}.")
endif()

collect(imports "DLL Name: " "[^\n]+")
if(NOT imports)
  refuse(" has no imports that can be read.")
endif()
foreach(import ${imports})
  string(TOUPPER "${import}" name)
  string(REGEX REPLACE "\\.DLL$" "" name "${name}")
  if(NOT name IN_LIST system)
    refuse(" imports ${import}, which not every machine has.")
  endif()
endforeach()
