# Installs the packages of the lock file into TARGET, unless those of the very same lock file lie there already.

file(READ "${SOURCE}/package-lock.json" wanted)
set(stamp "${TARGET}/installed-lock.json")
if(EXISTS "${stamp}")
  file(READ "${stamp}" present)
  if(present STREQUAL wanted)
    return()
  endif()
endif()
file(MAKE_DIRECTORY "${TARGET}")
file(COPY "${SOURCE}/package.json" "${SOURCE}/package-lock.json" "${SOURCE}/.npmrc" DESTINATION "${TARGET}")
execute_process(COMMAND "${NPM}" ci --include=dev --prefer-offline WORKING_DIRECTORY "${TARGET}"
  RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "npm could not install the oracles:\n${output}")
endif()
file(WRITE "${stamp}" "${wanted}")
