import { render } from 'preact';
import { App } from './App';
import { listenToKeys } from './keys';
import { connection } from './link';
import './app.css';
import './watch';

render(<App />, document.getElementById('app')!);
listenToKeys();
connection.open();
