import { Dialogs } from './parts/Dialogs';
import { EditMenu } from './parts/EditMenu';
import { Header } from './parts/Header';
import { Help } from './parts/Help';
import { Palette } from './parts/Palette';
import { Drawer, SidePanels, SurfacePanel } from './parts/Panels';
import { Screen } from './parts/Screen';
import { ConnectionBanner, LiveRegions, Notices, ProgressBar } from './parts/Status';
import { Transport } from './parts/Transport';
import { connectionStatus } from './connection';
import { overlay, wide } from './ui';

export function App() {
  return (
    <div class="app" data-connection={connectionStatus.value}>
      <Header />
      <div class="banners">
        <ConnectionBanner />
        <ProgressBar />
      </div>
      <main class="desk">
        <Screen />
        {wide.value && <SurfacePanel />}
      </main>
      {wide.value ? <SidePanels /> : <Drawer />}
      <Transport />
      <EditMenu />
      <Dialogs />
      {overlay.value === 'palette' && <Palette />}
      {overlay.value === 'help' && <Help />}
      <Notices />
      <LiveRegions />
    </div>
  );
}
