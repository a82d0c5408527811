# Every installed header must compile alone, as C++14 and without a warning.
file(GLOB_RECURSE headers ${INCLUDE}/*.h)
if(NOT headers)
    message(FATAL_ERROR "no headers in ${INCLUDE}")
endif()
file(WRITE ${EMPTY} "")
set(failed)
foreach(header IN LISTS headers)
    execute_process(
        COMMAND ${COMPILER} -std=c++14 -Wall -Wextra -Wpedantic -Wshadow -Wno-unused-parameter -Werror
                -fsyntax-only -I${INCLUDE} -I${INCLUDE}/hge -include ${header} ${EMPTY}
        RESULT_VARIABLE result ERROR_VARIABLE messages)
    if(NOT result EQUAL 0)
        list(APPEND failed ${header})
        message("${messages}")
    endif()
endforeach()
if(failed)
    message(FATAL_ERROR "these headers do not compile alone: ${failed}")
endif()
list(LENGTH headers count)
message(STATUS "${count} headers compile alone as C++14")
