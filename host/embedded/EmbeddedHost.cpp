// SPDX-License-Identifier: MIT
#include "host/embedded/EmbeddedHost.h"

namespace TC::embedded {

void reset()
{
    // Settings and folders first: the parts that follow read their files from there.
    setClientType(0);
    setConfigDir(QString());
    setUserRootDir(QString());
    clearModuleRights();
    setExcelAvailable(true);
    setWorkbookProgram(QString());
    reloadInstruments();
    restoreFormulas();
    // Nobody is told of what follows who was not there from the start.
    setReloadReceiver(nullptr);
    setBacktestReceiver(nullptr);
    setReplayDate(0);
    clearPositions();
    clearSaveDialogAnswer();
    // The skin last: it tells its handlers, which may ask any of the parts above.
    loadSkin(skinNames().constFirst());
}

} // namespace TC::embedded
