// The picture: camera and light; draws after changes and finds the wire under the pointer.

import {
  AmbientLight, Color, DirectionalLight, DoubleSide, Mesh, MeshBasicMaterial, MeshPhongMaterial, PerspectiveCamera,
  Scene, WebGLRenderer,
} from "three";
import { OrbitControls } from "three-examples/controls/OrbitControls.js";
import { Picker } from "./picking.js";
import { fit, kFieldOfView, kViews } from "./views.js";

const kHighlight = 0xff5a1f;
// The largest distance in pixels from the pointer to a wire that it picks; a finger is less exact than a mouse.
const kReach = { mouse: 3, touch: 9 };

export class Stage {
  constructor(canvas, context, shape, tubeSides) {
    this.canvas = canvas;
    this.shape = shape;
    this.renderer = new WebGLRenderer({ canvas, context });
    this.camera = new PerspectiveCamera(kFieldOfView, 1, 0.1, 1000);
    this.controls = new OrbitControls(this.camera, canvas);
    this.controls.enableKeys = false; // keys would move the picture while the list has the focus
    this.controls.screenSpacePanning = true;
    this.controls.addEventListener("change", () => this.draw());
    // After a drag the view has no name, so a new size of the window does not reset it.
    this.controls.addEventListener("start", () => (this.view = null));
    this.scene = new Scene();
    this.scene.background = new Color();
    const lamp = new DirectionalLight(0xffffff, 0.6);
    lamp.position.set(0.4, 0.7, 1);
    this.camera.add(lamp);
    this.scene.add(this.camera, new AmbientLight(0xffffff, 0.5));
    const solid = new MeshPhongMaterial({ vertexColors: true, flatShading: true, side: DoubleSide, shininess: 0 });
    this.scene.add(new Mesh(shape.geometry(shape.bodyTriangles), solid));
    this.wires = new Mesh(shape.geometryOfWires([]), solid);
    // A highlighted wire is visible even behind other things.
    const marked = new MeshBasicMaterial({ color: kHighlight, depthTest: false, side: DoubleSide });
    this.marked = new Mesh(shape.geometryOfWires([]), marked);
    this.marked.renderOrder = 1;
    this.scene.add(this.wires, this.marked);
    this.picker = new Picker(shape, tubeSides);
    this.shown = [];
    this.show("Iso");
  }

  get size() {
    return { width: this.canvas.clientWidth || 1, height: this.canvas.clientHeight || 1 };
  }

  // Moves the eye to the view of this name.
  show(view) {
    const { width, height } = this.size;
    const { position, target } = fit(kViews[view], this.shape.low, this.shape.high, width / height);
    this.camera.position.fromArray(position);
    this.controls.target.fromArray(target);
    this.view = view;
    this.controls.update();
    this.draw();
  }

  setTheme(isDark, background) {
    this.isDark = isDark;
    this.shape.paint(isDark);
    this.scene.background.set(background);
    this.draw();
  }

  setWires(indices) {
    this.shown = indices;
    this.replace(this.wires, indices);
  }

  mark(indices) {
    this.replace(this.marked, indices);
  }

  replace(mesh, indices) {
    mesh.geometry.dispose();
    mesh.geometry = this.shape.geometryOfWires(indices);
    mesh.visible = indices.length > 0;
    this.draw();
  }

  resize() {
    const { width, height } = this.size;
    this.renderer.setPixelRatio(window.devicePixelRatio);
    this.renderer.setSize(width, height, false);
    this.camera.aspect = width / height;
    if (this.view) this.show(this.view);
    this.drawNow();
  }

  // Several changes before the next frame draw once.
  draw() {
    if (this.waiting) return;
    this.waiting = true;
    requestAnimationFrame(() => this.drawNow());
  }

  drawNow() {
    this.waiting = false;
    this.placePlanes();
    this.renderer.render(this.scene, this.camera);
  }

  // Moves the near and far planes close to the package, for the best precision of the depth buffer.
  placePlanes() {
    const { low, high } = this.shape;
    const middle = [0, 1, 2].map((axis) => (low[axis] + high[axis]) / 2);
    const radius = Math.hypot(...[0, 1, 2].map((axis) => high[axis] - low[axis])) / 2 || 1;
    const away = Math.hypot(...this.camera.position.toArray().map((c, axis) => c - middle[axis]));
    this.camera.near = Math.max(away - 1.01 * radius, 0.002 * radius);
    this.camera.far = away + 1.01 * radius;
    this.controls.minDistance = 0.01 * radius;
    this.controls.maxDistance = 20 * radius;
    this.camera.updateProjectionMatrix();
  }

  turn(right, up) {
    this.view = null;
    const offset = this.camera.position.clone().sub(this.controls.target);
    const length = offset.length();
    const around = Math.atan2(offset.x, offset.z) + right;
    const down = Math.min(Math.max(Math.acos(offset.y / length) - up, 1e-4), Math.PI - 1e-4);
    offset.set(Math.sin(down) * Math.sin(around), Math.cos(down), Math.sin(down) * Math.cos(around));
    this.camera.position.copy(this.controls.target).addScaledVector(offset, length);
    this.controls.update();
    this.draw();
  }

  zoom(factor) {
    this.view = null;
    this.camera.position.sub(this.controls.target).multiplyScalar(factor).add(this.controls.target);
    this.controls.update();
    this.draw();
  }

  // The index of the wire at a place of the canvas, or -1.
  wireAt(x, y, pointer) {
    const { camera, size } = this;
    camera.updateMatrixWorld(); // which also sets its inverse
    const matrix = camera.projectionMatrix.clone().multiply(camera.matrixWorldInverse).elements;
    const scale = size.height / 2 / Math.tan((kFieldOfView / 2) * (Math.PI / 180));
    const look = { eye: camera.position.toArray(), matrix, near: camera.near, size, scale };
    return this.picker.wireAt(this.shown, [x, y], kReach[pointer] || kReach.mouse, look);
  }

  // The picture as a data URL, in colours for white paper.
  picture() {
    const shown = [this.isDark, `#${this.scene.background.getHexString()}`];
    this.setTheme(false, "#ffffff");
    this.drawNow();
    const address = this.canvas.toDataURL("image/png");
    this.setTheme(...shown);
    return address;
  }
}
