# The drawing that stands for each system symbol name. The drawings are those of Debian's bootstrap-icons; nothing of
# them is kept in this tree.
set(PLATFORM_SYMBOLS
  "arrow.triangle.2.circlepath=arrow-repeat"
  "bell.fill=bell-fill"
  "checkmark.circle.fill=check-circle-fill"
  "chevron.right=chevron-right"
  "circle=circle"
  "clock.fill=clock-fill"
  "cursorarrow.and.square.on.square.dashed=cursor-fill"
  "cursorarrow.motionlines=mouse"
  "exclamationmark.triangle.fill=exclamation-triangle-fill"
  "eye.fill=eye-fill"
  "eye.slash.fill=eye-slash-fill"
  "gauge=speedometer2"
  "gearshape=gear"
  "heart.fill=heart-fill"
  "keyboard=keyboard"
  "number=hash"
  "paintpalette.fill=palette-fill"
  "play.fill=play-fill"
  "power=power"
  "rectangle.on.rectangle=front"
  "scroll=chevron-expand"
  "slider.horizontal.3=sliders"
  "speedometer=speedometer2"
  "stop.fill=stop-fill"
  "timer=stopwatch"
  "xmark.circle.fill=x-circle-fill"
)

find_path(BOOTSTRAP_ICONS_DIR eye-fill.svg PATHS /usr/share/bootstrap-icons/svg REQUIRED NO_DEFAULT_PATH)

# Compiles the drawings into the target's resources as :/symbols/<system symbol name>.svg.
function(platform_add_symbols target)
  set(files "")
  foreach(symbol IN LISTS PLATFORM_SYMBOLS)
    string(REGEX MATCH "^([^=]+)=(.+)$" _ "${symbol}")
    set(file "${BOOTSTRAP_ICONS_DIR}/${CMAKE_MATCH_2}.svg")
    if(NOT EXISTS "${file}")
      message(FATAL_ERROR "bootstrap-icons has no drawing ${CMAKE_MATCH_2} for ${CMAKE_MATCH_1}")
    endif()
    set(copy "${CMAKE_CURRENT_BINARY_DIR}/symbols/${CMAKE_MATCH_1}.svg")
    configure_file("${file}" "${copy}" COPYONLY)
    list(APPEND files "${copy}")
  endforeach()
  qt_add_resources(${target} symbols PREFIX / BASE "${CMAKE_CURRENT_BINARY_DIR}" FILES ${files})
endfunction()
