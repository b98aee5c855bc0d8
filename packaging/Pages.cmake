# The pages and examples that libaccessory-dev carries below share/doc, from the project's folder, for those who have
# the packages and not the sources. They lie there as they lie here, so a link from one to another leads to the same.
get_filename_component(packaged_from "${CMAKE_CURRENT_LIST_DIR}/.." ABSOLUTE)

# accessory_files(<variable> <pattern>...): the files of those names, from the project's folder.
function(accessory_files variable)
  list(TRANSFORM ARGN PREPEND "${packaged_from}/")
  file(GLOB files RELATIVE "${packaged_from}" ${ARGN})
  set(${variable} ${files} PARENT_SCOPE)
endfunction()
accessory_files(packaged_pages docs/guide/*.md docs/ACCESSORYCTL.md docs/PERFORMANCE.md docs/RUNTIME.md
                docs/SIMULATOR.md docs/TESTKIT.md docs/WIRE.md)
accessory_files(packaged_beside_pages docs/performance/*.svg examples/*.cpp examples/*.h examples/testing/*.cpp)
