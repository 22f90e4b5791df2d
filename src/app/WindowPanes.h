// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

#include "app/Announcements.h"
#include "app/BrowserPane.h"
#include "app/CardDesk.h"
#include "app/DevicePane.h"
#include "app/EndQuestion.h"
#include "app/FolderBrowser.h"
#include "app/LevelFeed.h"
#include "app/ListOrder.h"
#include "app/LoopPane.h"
#include "app/LoudnessPane.h"
#include "app/MainView.h"
#include "app/MeasuredTake.h"
#include "app/RepairOffer.h"
#include "app/RowMenu.h"
#include "app/RowReader.h"
#include "app/ScopePane.h"
#include "app/SelectedExport.h"
#include "app/SelectionPane.h"
#include "app/SessionRemote.h"
#include "app/SoloPane.h"
#include "app/SoundPane.h"
#include "app/TakeInformant.h"
#include "app/TakeKeys.h"
#include "app/TakeMessages.h"
#include "app/TakeRecall.h"
#include "app/TakeSession.h"
#include "app/TransportPane.h"
#include "app/WaveformPane.h"
#include "app/WidthPane.h"
#include "app/WindowCommands.h"
#include "app/WindowDrop.h"
#include "app/WindowStart.h"
#include "dialogs/BatchDesk.h"
#include "dialogs/ExportDesk.h"
#include "queue/ExportQueue.h"

/// What works behind the window, put together: the take and the folder, and the panes that show
/// them, in the order in which they are told of things. A further pane is a line here; what it asks
/// of others is one in `WindowWiring`. Interface thread.
struct WindowPanes {
  /// What an export that is cancelled by the end of the window has for its own.
  static constexpr std::chrono::milliseconds kExportPatience{300};

  /// The view and `parent` outlive the panes.
  WindowPanes(MainView& mainView, QObject& parent) : view(mainView), owner(parent) {
    exports.setPatience(kExportPatience);
  }

  MainView& view;
  QObject& owner;
  TakeSession take{&owner};
  FolderBrowser browser{&owner};
  SessionRemote remote{take, browser, &owner};
  BrowserPane files{*view.browser, browser, *view.player->lblStatus, &owner};
  SelectionPane selection{*view.browser, browser, files, &owner};
  RowMenu rowMenu{*view.browser, browser, files, &owner};
  WindowDrop drop{view, browser, &owner};
  TransportPane transport{*view.player, take, &owner};
  SoundPane sound{*view.player, take, &owner};
  LevelFeed levels{*view.player->stage, take, &owner};
  MeasuredTake measured{take, &owner, std::make_shared<const AnalysisCache>()};
  WaveformPane waveform{*view.player, take, measured, &owner};
  ScopePane scope{*view.player->stage, take, &owner};
  LoudnessPane loudness{*view.player, take, measured, &owner};
  WidthPane width{*view.player->stage, take, measured, &owner};
  DevicePane device{*view.device, &owner};
  TakeMessages messages{view, *view.player->lblStatus, take, &owner};
  RepairOffer repair{{view, *view.player->lblStatus, take, browser}, &owner};
  LoopPane loop{*view.player, *view.menu->actionLoop, take, &owner};
  SoloPane solo{{*view.player->btnSoloMid, *view.menu->actionSoloMid},
                {*view.player->btnSoloSide, *view.menu->actionSoloSide},
                take,
                &owner};
  std::shared_ptr<TakeKeeper> keeper = std::make_shared<TakeKeeper>();
  TakeRecall recall{{*view.menu->actionRemember, sound, *view.player->lblStatus, take, keeper},
                    &owner};
  ListOrder order{
      {view.menu->actionByName, view.menu->actionByRecorded, view.menu->actionByDuration},
      browser,
      &owner};
  TakeKeys keys{*view.menu, *view.player, &owner};
  ExportQueue exports;
  RowReader rows{browser, exports, keeper, *view.menu->actionRemember, &owner};
  ExportDesk desk{exports, view};
  BatchDesk batch{exports, view};
  SelectedExport selected{{files, take, *view.player->lblStatus, desk, batch, recall}, &owner};
  CardDesk cards{{view, *view.menu->actionCopyCard, *view.menu->actionVerifyFolder,
                  *view.player->lblStatus, browser},
                 &owner};
  EndQuestion ending{{view, exports, cards, repair}, &owner};
  TakeInformant informant{view, take, measured, &owner};
  WindowCommands commands{{view, *view.menu, *view.player->btnExport, *view.player->lblStatus,
                           exports, desk, &measured},
                          take,
                          browser,
                          &owner};
  WindowStart start{browser, commands, take, &owner};
  Announcements announcements{
      *view.announcer, {device, desk, batch, cards, *view.player->lblStatus}, &owner};
};
