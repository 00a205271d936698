# Sets ovxid_qlog to the path of the board's logging library, if the builder names one. It is not
# searched for otherwise: what else is installed on a machine must not change what is built there.
if(IS_ABSOLUTE "${OVXID_QLOG_LIBRARY}")
  set(ovxid_qlog "${OVXID_QLOG_LIBRARY}")
elseif(OVXID_QLOG_LIBRARY)
  find_library(ovxid_qlog NAMES "${OVXID_QLOG_LIBRARY}" NO_CACHE)
endif()

if(NOT OVXID_QLOG_LIBRARY)
  message(STATUS "Logging library: none is linked")
elseif(EXISTS "${ovxid_qlog}" AND NOT IS_DIRECTORY "${ovxid_qlog}")
  message(STATUS "Logging library: ${ovxid_qlog}")
else()
  message(FATAL_ERROR "OVXID_QLOG_LIBRARY is neither the absolute path of a file nor the name of a "
    "library that CMake finds: ${OVXID_QLOG_LIBRARY}")
endif()
