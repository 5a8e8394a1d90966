# zqxml_harden(TARGET): what makes a fault of memory end the program instead of serving an attacker,
# in the builds that are optimised. The sanitizers find more, and don't go with _FORTIFY_SOURCE.
function(zqxml_harden target)
  if(CMAKE_CXX_FLAGS MATCHES "-fsanitize")
    return()
  endif()
  set(optimised $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)
  target_compile_options(${target}
    PRIVATE
      $<${optimised}:-fstack-protector-strong>
      $<${optimised}:-U_FORTIFY_SOURCE>
      $<${optimised}:-D_FORTIFY_SOURCE=3>)
  target_link_options(${target} PRIVATE -Wl,-z,relro -Wl,-z,now)
endfunction()
