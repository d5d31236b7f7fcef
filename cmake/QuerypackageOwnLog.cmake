# A host's own Vornik::Log has to be one library for the host and for querypackage.
get_target_property(log Vornik::Log ALIASED_TARGET)
if(NOT log)
  set(log Vornik::Log)
endif()
get_target_property(type ${log} TYPE)
if(type STREQUAL "STATIC_LIBRARY")
  message(WARNING "Vornik::Log is a static library (${log}), so that querypackage and the host each get "
    "a log of their own: what querypackage reports does not reach the host's. Make it a shared library.")
endif()
