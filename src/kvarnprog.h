// Every exported class of the library: settings, project paths and data files of the geotechnical
// drawing programs.
#pragma once

#include "core/dirsort.h"
#include "core/list0.h"
#include "core/message.h"
#include "core/registry.h"
#include "core/utf8.h"
#include "geodata/bergormatelista.h"
#include "geodata/stodpunkt.h"
#include "geodata/vag2.h"
#include "geodata/vagindex.h"
#include "geodata/vaglinje.h"
#include "kvarnfiles/kvarncfg.h"
#include "kvarnfiles/kvarninst.h"
#include "kvarnfiles/kvarnpar.h"
#include "project/projektstatus.h"
#include "project/projpath.h"
#include "project/ritningsformat.h"
#include "resources/version.h"
#include "settings/autoini.h"
