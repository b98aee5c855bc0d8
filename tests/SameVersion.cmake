# Fails unless everything that names the version names <version>: the header, the packages for CMake, pkg-config and
# Debian, the changelogs, and what each of <programs> says of itself.
function(expect where text part)
  string(FIND "${text}" "${part}" place)
  if(place EQUAL -1)
    message(SEND_ERROR "${where} does not name version ${version}: it has no '${part}'")
  endif()
endfunction()

function(expect_in file part)
  file(READ "${file}" text)
  expect("${file}" "${text}" "${part}")
endfunction()

string(REPLACE "." ";" numbers "${version}")
list(GET numbers 0 major)
list(GET numbers 1 minor)
list(GET numbers 2 patch)
expect_in("${built}/include/accessory/Version.h" "#define ACCESSORY_VERSION \"${version}\"\n")
expect_in("${built}/include/accessory/Version.h" "#define ACCESSORY_VERSION_MAJOR ${major}\n")
expect_in("${built}/include/accessory/Version.h" "#define ACCESSORY_VERSION_MINOR ${minor}\n")
expect_in("${built}/include/accessory/Version.h" "#define ACCESSORY_VERSION_PATCH ${patch}\n")
expect_in("${built}/accessory.pc" "\nVersion: ${version}\n")
expect_in("${built}/accessoryConfigVersion.cmake" "set(PACKAGE_VERSION \"${version}\")\n")

foreach(program ${programs})
  get_filename_component(name "${program}" NAME)
  execute_process(COMMAND "${program}" --version OUTPUT_VARIABLE said)
  expect("${name} --version" "<${said}" "<${name} ${version}\n")
  expect_in("${built}/man/${name}.1" "\"accessory ${version}\"")
endforeach()

# The newest entry stands first.
file(STRINGS "${sources}/CHANGELOG.md" headings REGEX "^## ")
list(GET headings 0 heading)
expect(CHANGELOG.md "<${heading}>" "<## ${version}>")
file(STRINGS "${sources}/packaging/debian/changelog" entries REGEX "^accessory ")
list(GET entries 0 entry)
expect(packaging/debian/changelog "${entry}" "accessory (${version}-")
