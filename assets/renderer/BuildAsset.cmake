# Builds renderer.js from a copy of the package. Without REQUIRED a failure to get the packages (no network) leaves the
# asset out with a message, and the next build tries again; errors of the build itself are errors always.

foreach(name SOURCE_DIR PACKAGE_DIR ASSET_DIR NPM NODE)
  if(NOT DEFINED ${name})
    message(FATAL_ERROR "${name} is not set")
  endif()
endforeach()

foreach(folder src build test)
  file(REMOVE_RECURSE "${PACKAGE_DIR}/${folder}")
endforeach()
file(COPY "${SOURCE_DIR}/" DESTINATION "${PACKAGE_DIR}" PATTERN node_modules EXCLUDE PATTERN dist EXCLUDE)

# The packages are installed anew only when the lock file has changed.
file(SHA256 "${SOURCE_DIR}/package-lock.json" lock)
set(stamp "${PACKAGE_DIR}/node_modules/.tessary-lock")
set(installed "")
if(EXISTS "${stamp}")
  file(READ "${stamp}" installed)
endif()
if(NOT installed STREQUAL lock)
  execute_process(COMMAND "${NPM}" ci --ignore-scripts --no-audit --no-fund WORKING_DIRECTORY "${PACKAGE_DIR}"
    RESULT_VARIABLE failed OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(failed)
    if(REQUIRED)
      message(FATAL_ERROR "npm could not install the asset's packages:\n${output}")
    endif()
    message(STATUS "npm could not install the asset's packages: the default renderer asset is left out")
    return()
  endif()
  file(WRITE "${stamp}" "${lock}")
endif()

execute_process(COMMAND "${NODE}" build/build.js --out "${ASSET_DIR}" WORKING_DIRECTORY "${PACKAGE_DIR}"
  RESULT_VARIABLE failed)
if(failed)
  message(FATAL_ERROR "the default renderer asset could not be built")
endif()
